#include "cashday/libro_x1.h"

#include <QUrl>

#include "cashday/lector.h"
#include "cashday/libro_x1_hojas.h"
#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/text/fecha.h"

namespace {

HojaLibro hojaNueva(const QString& nombre, std::vector<double> anchos) {
  HojaLibro h;
  h.nombre = nombre;
  h.anchos = std::move(anchos);
  h.encabezado = QStringLiteral("&R&6TarvoPos - Caja Registradora");
  h.pie = QStringLiteral("&R&6página &P");
  h.filasRepetidas = 5;
  return h;
}

QString rutaDelLibro(const Puesto& p) {
  return p.rutas.enTemp(
      QStringLiteral("ReporteX1_%1.xlsx")
          .arg(FormatearFecha(p.reloj.now(), u"ddmmyyyy_") + p.reloj.now().toString(QStringLiteral("HHmmss"))));
}

}  // namespace

std::optional<Recordset> HojaX1::leer(const Sql& consulta, const QString& seccion, int columna) {
  // A reader of its own: what fails here silences no other section.
  LectorReporte l(p, periodo, {});
  Recordset rs = l.filas(consulta);
  if (l.bien()) return rs;
  r.faltan << seccion;
  poner(columna, QStringLiteral("No se pudo leer: ") + seccion);
  bajar();
  return {};
}

double PrecioNeto(const Recordset::Fila& f) {
  const double precio = Numero(f[u"Precio"]);
  return precio + precio * Numero(f[u"nDscto"]) / 100;
}

LibroX1 LeerLibroX1(Puesto& p) {
  LibroX1 r;
  r.libro.hojas = {hojaNueva(QStringLiteral("Reporte X - Detallado "), {5, 5, 8, 25, 10, 10, 15}),
                   hojaNueva(QStringLiteral("Reporte X - Consolidado "), {30, 10, 10, 10, 13, 10, 15})};
  Periodo periodo;
  if (!LeerPeriodo(p, periodo)) r.faltan << QStringLiteral("las marcas del día (se tomó lo que sigue abierto)");
  HojaX1 detalle{p, periodo, r, r.libro.hojas[0]}, consolidado{p, periodo, r, r.libro.hojas[1]};
  DetallarX1(detalle);
  ConsolidarX1(consolidado);
  return r;
}

void ExportaX1aExcel(Puesto& p) {
  const LibroX1 r = LeerLibroX1(p);
  const QString ruta = rutaDelLibro(p);
  if (const auto fallo = EscribirLibro(r.libro, ruta)) {
    p.mensajes.mostrar(*fallo, Mensajes::kTitulo, Icono::Critico);
    return;
  }
  if (!r.faltan.isEmpty()) {
    p.mensajes.mostrar(QStringLiteral("El libro está incompleto. No se pudo leer:\n") + r.faltan.join(u'\n'),
                       Mensajes::kTitulo, Icono::Aviso);
  }
  if (AbrirEnlace(p, QUrl::fromLocalFile(ruta).toString(QUrl::FullyEncoded))) return;
  p.mensajes.mostrar(
      QStringLiteral("El reporte quedó guardado en:\n%1\nEste equipo no tiene un programa que lo abra.").arg(ruta));
}
