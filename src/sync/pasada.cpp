#include "sync/pasada.h"

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "sync/updt.h"

namespace {

// A row's line of the log; none for some.
QString textoDeFila(const Pasada& pasada, const FinFila& f) {
  if (f.suerte == Suerte::Callada || f.suerte == Suerte::Termina) return {};
  const Palabras& w = f.palabras ? *f.palabras : pasada.palabras;
  const QString& palabras = f.suerte == Suerte::Hecha ? w.bien : w.mal;
  return palabras.isEmpty() ? QString() : palabras + f.codigo;
}

class Marcha {
 public:
  Marcha(FrmUpdt& pantalla, const Pasada& pasada) : pantalla_(pantalla), pasada_(pasada) {}

  FinPasada tomar(const Recordset& rs) {
    const bool enLotes = pasada_.lote && pantalla_.enLotes && rs.RecordCount() >= kFilasParaLote;
    Filas filas;
    for (const auto& f : rs) {
      filas.push_back(f);
      if (enLotes && static_cast<qsizetype>(filas.size()) < pasada_.filasPorLote) continue;
      const FinPasada fin = entregar(filas, enLotes);
      if (fin != FinPasada::Bien) return fin;
      filas.clear();
    }
    return filas.empty() ? FinPasada::Bien : entregar(filas, enLotes);
  }

 private:
  FinPasada entregar(const Filas& filas, bool enLote) {
    if (enLote) {
      if (pideParar()) return FinPasada::Detenida;
      const std::vector<FinFila> fines = pasada_.lote(filas);
      std::vector<QString> lineas;
      for (const FinFila& f : fines) {
        if (QString l = textoDeFila(pasada_, f); !l.isEmpty()) lineas.push_back(std::move(l));
      }
      pantalla_.insertar(std::move(lineas));
      if (!fines.empty()) return fines.back().suerte == Suerte::Termina ? FinPasada::Mal : FinPasada::Bien;
    }
    for (const auto& fila : filas) {
      if (pideParar()) return FinPasada::Detenida;
      const FinFila f = pasada_.fila(fila);
      if (f.suerte == Suerte::Termina) return FinPasada::Mal;
      if (const QString l = textoDeFila(pasada_, f); !l.isEmpty()) pantalla_.InsertaLinea(l);
    }
    return FinPasada::Bien;
  }

  bool pideParar() { return pasada_.sePuedeDetener && pantalla_.detener(); }

  FrmUpdt& pantalla_;
  const Pasada& pasada_;
};

}  // namespace

FinPasada Recorrer(Puesto& p, FrmUpdt& pantalla, const Pasada& pasada) {
  Marcha marcha(pantalla, pasada);
  const auto cursor = pasada.entera.vacia() ? nullptr : pasada.origen.abrirCursor(pasada.entera);
  Recordset rs, anterior;
  for (bool primera = true;; primera = false) {
    std::optional<Recordset::Fila> ultima;
    if (!primera) ultima.emplace(anterior, anterior.RecordCount() - 1);
    const bool leida =
        cursor ? p.poDBAdmin.SeguirConsulta(pasada.origen, pasada.entera, *cursor, kFilasPorPagina, rs)
               : p.poDBAdmin.EjecutarConsulta(pasada.origen, pasada.pagina(ultima ? &*ultima : nullptr), rs);
    if (!leida) return FinPasada::Mal;
    const FinPasada fin = marcha.tomar(rs);
    if (fin != FinPasada::Bien) return fin;
    // TOP may bring more rows than it was asked for, never fewer.
    if (rs.RecordCount() < kFilasPorPagina) break;
    std::swap(rs, anterior);
  }
  if (pasada.barra > 0) pantalla.AumentaBarra(pasada.barra);
  return FinPasada::Bien;
}

std::function<std::vector<FinFila>(const Filas&)> EnUnaTransaccion(
    Conexion& destino, std::function<FinFila(const Recordset::Fila&)> fila) {
  return [&destino, fila = std::move(fila)](const Filas& filas) {
    std::vector<FinFila> fines;
    const auto error = EnTransaccion(destino, [&]() -> std::optional<ErrorBD> {
      for (const auto& f : filas) {
        fines.push_back(fila(f));
        if (fines.back().suerte == Suerte::Termina) break;
      }
      return {};
    });
    if (error) fines.clear();
    return fines;
  };
}
