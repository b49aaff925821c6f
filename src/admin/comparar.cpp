#include <QDir>

#include "admin/argumentos.h"
#include "admin/consola_sql.h"
#include "admin/ordenes.h"
#include "foundation/db_admin.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "servidores.h"
#include "sync/cuadre_central.h"

namespace {

int fallo(const QString& palabras) {
  Quejarse(palabras);
  return kFallo;
}

// The day of an option; `porDefecto` without it. Nothing for a text that is no date.
std::optional<QDate> diaDe(const Argumentos& a, const QString& opcion, QDate porDefecto) {
  if (!a.tiene(opcion)) return porDefecto;
  const auto fecha = LeerFecha(a.opciones[opcion]);
  return fecha ? std::optional(fecha->date()) : std::nullopt;
}

}  // namespace

int ordenComparar(const QStringList& palabras) {
  const QString desde = QStringLiteral("--desde"), hasta = QStringLiteral("--hasta");
  Argumentos a;
  if (const auto error = LeerArgumentos(palabras, {1, 1, {desde, hasta}, {}}, a)) {
    Quejarse(*error + QStringLiteral(" Use «tarvopos-admin ayuda»."));
    return kMalUso;
  }
  const QString carpeta = QDir(a.lugares[0]).absolutePath();
  const auto motores = motoresDelSistema(carpeta, {{}, procedimientosDeServidores(), {}});
  Conexion local, central;
  for (const auto& [base, cnn] : {std::pair(BasePuesto::Local, &local), std::pair(BasePuesto::Central, &central)}) {
    if (const auto error = AbrirBase(*motores, carpeta, base, *cnn)) return fallo(*error);
  }
  Recordset rs;
  if (const auto error = local.consultar(u"SELECT Caja FROM Configuracion"_sql, rs)) return fallo(error->descripcion);
  PedidoCuadre pedido;
  pedido.caja = LimpiarNulo(rs[0]);
  if (const auto error = local.consultar(
          u"SELECT MIN(dOperFech), MAX(dOperFech) FROM Operacion WHERE cOperFlagAbierto = 0 AND cProdCode <> 0"_sql,
          rs)) {
    return fallo(error->descripcion);
  }
  const auto primero = diaDe(a, desde, rs[0].toDateTime().date()), ultimo = diaDe(a, hasta, rs[1].toDateTime().date());
  if (!primero || !ultimo) return fallo(QStringLiteral("La fecha debe tener el formato dd/mm/yyyy"));
  if (!primero->isValid() || !ultimo->isValid()) {
    Decir(QStringLiteral("La caja no tiene operaciones cerradas."));
    return kBien;
  }
  pedido.desde = *primero;
  pedido.hasta = *ultimo;
  Recordset igv;
  (void)central.consultar(u"select nmonto1 from parametro where cCodParam='IGV'"_sql, igv);
  QString error;
  const auto r = CuadrarConCentral(local, central, pedido, Numero(igv[0]) / 100, error);
  if (!r) return fallo(error);
  for (const QString& l : r->lineas) Decir(l);
  Decir(r->igual ? QStringLiteral("Tienda y centro coinciden.") : QStringLiteral("Tienda y centro no coinciden."));
  return r->igual ? kBien : kFallo;
}
