#include "sync/pasada.h"

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "sync/updt.h"

namespace {

void contar(FrmUpdt& pantalla, const Pasada& pasada, const FinFila& f) {
  if (f.suerte == Suerte::Callada || f.suerte == Suerte::Termina) return;
  const Palabras& w = f.palabras ? *f.palabras : pasada.palabras;
  const QString& palabras = f.suerte == Suerte::Hecha ? w.bien : w.mal;
  if (!palabras.isEmpty()) pantalla.InsertaLinea(palabras + f.codigo);
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
      for (const FinFila& f : fines) {
        contar(pantalla_, pasada_, f);
        if (f.suerte == Suerte::Termina) return FinPasada::Mal;
      }
      if (!fines.empty()) return FinPasada::Bien;
    }
    for (const auto& fila : filas) {
      if (pideParar()) return FinPasada::Detenida;
      const FinFila f = pasada_.fila(fila);
      if (f.suerte == Suerte::Termina) return FinPasada::Mal;
      contar(pantalla_, pasada_, f);
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
  Recordset rs, anterior;
  for (bool primera = true;; primera = false) {
    std::optional<Recordset::Fila> ultima;
    if (!primera) ultima.emplace(anterior, anterior.RecordCount() - 1);
    if (!p.poDBAdmin.EjecutarConsulta(pasada.origen, pasada.pagina(ultima ? &*ultima : nullptr), rs)) {
      return FinPasada::Mal;
    }
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
