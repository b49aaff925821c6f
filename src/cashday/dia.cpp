#include "cashday/dia.h"

#include "cashday/pantallas_principal.h"
#include "cashday/principal.h"
#include "cashday/reportes.h"
#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

bool consultar(Puesto& p, const QString& sql, Recordset& rs) {
  return p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, sql, rs);
}

// Where an earlier day may have left rows open, the key that orders them and the column of Configuracion that holds
// the watermark on it.
struct Sobrantes {
  QString tabla, clave, marca;
};
const Sobrantes kOperaciones{QStringLiteral("Operacion"), QStringLiteral("cOperID"), QStringLiteral("cOperId")};
const Sobrantes kParalelas{QStringLiteral("Operacionparalela"), QStringLiteral("cOperCode"),
                           QStringLiteral("cOperIdP")};

const QString kAnteriores = QStringLiteral("dOperFech < (SELECT max(fec) FROM _Tmp)");

constexpr double kLimiteApertura = 1e10;  // soles or dollars

enum class Apertura { EnCurso, Reanudada };

// Closes them; an opening under way also writes the watermark anew, both or neither. One that is taken up again finds
// it written and goes by it: what lies above was sold since. `cerradas` tells whether there were any.
bool cerrarAnteriores(Puesto& p, const Sobrantes& s, Apertura apertura, bool& cerradas) {
  cerradas = false;
  QString cuales = kAnteriores;
  if (apertura == Apertura::Reanudada) {
    cuales += QStringLiteral(" AND %1 <= (SELECT %2 FROM Configuracion)").arg(s.clave, s.marca);
  }
  Recordset rs;
  if (!consultar(
          p, QStringLiteral("SELECT Count(*) As nCount FROM %1 Where coperflagabierto = 1 AND %2").arg(s.tabla, cuales),
          rs)) {
    return false;
  }
  if (Numero(rs[u"nCount"]) <= 0) return true;
  QStringList cierre{QStringLiteral("UPDATE %1 SET coperflagabierto = '0' WHERE %2").arg(s.tabla, cuales)};
  if (apertura == Apertura::EnCurso) {
    if (!consultar(p,
                   QStringLiteral("SELECT MAX(%1) AS marca FROM %2 Where coperflagabierto = 0 OR %3")
                       .arg(s.clave, s.tabla, kAnteriores),
                   rs)) {
      return false;
    }
    cierre << QStringLiteral("UPDATE Configuracion SET %1 = %2").arg(s.marca, LimpiarNulo(rs[u"marca"]));
  }
  if (const auto error = EjecutarJuntas(p.poCnnLocal, cierre)) {
    p.mensajes.mostrar(error->descripcion + QStringLiteral(" - ") + cierre.front());
    return false;
  }
  cerradas = true;
  p.mensajes.mostrar(QStringLiteral("NO se cerraron operaciones anteriores. \r\nRecuerde que debe procesar el menu "
                                    "SINCRONIZAR DATOS (DIA ANTERIOR) antes del mediodia!!! "),
                     QStringLiteral("Mensaje"));
  p.registro.RegistrarErrorLog(QStringLiteral("frmApertura.cmdGrabar_Click - No se cerraron operaciones"));
  return true;
}

bool cerrarDiasAnteriores(Puesto& p, Principal& principal, Apertura apertura) {
  bool cerradas = false;
  if (!cerrarAnteriores(p, kOperaciones, apertura, cerradas)) return false;
  if (cerradas) principal.sincronizarDiaAnt = true;
  return cerrarAnteriores(p, kParalelas, apertura, cerradas);
}

// The watermarks of an opening leave out at once what it will close: a desk that dies before it has closed them counts
// no row of yesterday. What can't be read is told where the rows are closed.
void pasarSobrantes(Puesto& p, const Sobrantes& s, QString& marca) {
  Recordset rs;
  if (p.poCnnLocal.consultar(QStringLiteral("SELECT MAX(%1) AS marca FROM %2 Where coperflagabierto = 1 AND %3")
                                 .arg(s.clave, s.tabla, kAnteriores),
                             rs)) {
    return;
  }
  if (Numero(rs[u"marca"]) > Val(marca)) marca = LimpiarNulo(rs[u"marca"]);
}

bool fallaApertura(Puesto& p) {
  p.mensajes.mostrar(QStringLiteral("No se pudo aperturar la Caja."), QStringLiteral("Mensaje"));
  return false;
}

// Why an amount opens no desk; "" for one that does.
QString defectoDeImporte(const QString& texto) {
  if (!EsNumerico(texto)) return QStringLiteral("no es un número");
  const double valor = LeerImporte(texto);
  if (valor < 0) return QStringLiteral("no puede ser negativo");
  return valor < kLimiteApertura ? QString() : QStringLiteral("tiene más de diez dígitos");
}

// Refuses the first amount that opens no desk.
bool importesValidos(Puesto& p, FrmApertura& v) {
  // clang-format off
  const struct { const char *campo, *moneda; const QString& texto; } importes[] = {
      {"txtimporsoles", "soles", v.txtimporsoles}, {"TxtImporDolares", "dólares", v.TxtImporDolares}};
  // clang-format on
  v.campoMal.clear();
  for (const auto& i : importes) {
    const QString defecto = defectoDeImporte(i.texto);
    if (defecto.isEmpty()) continue;
    v.campoMal = QString::fromLatin1(i.campo);
    p.mensajes.mostrar(QStringLiteral("El importe en %1 %2.\nEscriba un importe como 150.00, o 0.00 si no hay.")
                           .arg(QString::fromUtf8(i.moneda), defecto));
    return false;
  }
  return true;
}

}  // namespace

bool LeerMarcas(Puesto& p, MarcasDia& m) {
  Recordset rs;
  if (!consultar(p,
                 QStringLiteral("SELECT IIF(ISNULL(MAX(cOperID)),0, MAX(cOperID)) as cOperIDx FROM Operacion "
                                "Where coperflagabierto = 0 "),
                 rs))
    return false;
  m.cOperIdx = LimpiarNulo(rs[0]);
  if (!consultar(p,
                 QStringLiteral("SELECT IIF(ISNULL(MAX(cOperCode)),0, MAX(cOperCode)) as cOperCodex FROM "
                                "OperacionParalela Where coperflagabierto = 0 "),
                 rs))
    return false;
  m.cOperCodex = LimpiarNulo(rs[0]);
  return true;
}

bool AvisarRelojAtrasado(Puesto& p) {
  for (const char* tabla : {"Operacion", "OperacionParalela"}) {
    Recordset rs;
    // Straight to the connection: what can't be read is told by the statements that follow.
    if (p.poCnnLocal.consultar(QStringLiteral("SELECT Max(dOperFech) AS Ultima FROM ") + QLatin1String(tabla), rs)) {
      continue;
    }
    const QDate ultima = rs[u"Ultima"].toDateTime().date();
    if (!ultima.isValid() || p.reloj.today() >= ultima) continue;
    p.mensajes.mostrar(QStringLiteral("La fecha del sistema no puede ser posterior a al ultima operacion "
                                      "realizada...Verifique!!"),
                       QStringLiteral("Mensaje"));
    return true;
  }
  return false;
}

bool HayOperaciones(Puesto& p) {
  Recordset rs;
  QString marca;
  if (consultar(p, QStringLiteral("SELECT cOperId FROM Configuracion"), rs)) marca = LimpiarNulo(rs[u"cOperId"]);
  const QString condicion = marca.isEmpty() ? QStringLiteral("   and o.cOperflagabierto = 1 ")
                                            : QStringLiteral("   and o.cOperId > ") + marca + u' ';
  if (!consultar(
          p, QStringLiteral(" SELECT count(*) AS TOTAL FROM Operacion o WHERE o.cOperTipo in (1,2,3,4,5)") + condicion,
          rs))
    return false;
  return Numero(rs[u"TOTAL"]) >= 1;
}

QString MascaraApertura(const QString& texto) {
  return EsNumerico(texto) ? Formatear(LeerImporte(texto), u"###,###,###,##0.00") : texto;
}

bool AbrirCaja(Puesto& p, FrmApertura& v, Principal& principal) {
  if (!importesValidos(p, v)) return false;
  if (AvisarRelojAtrasado(p)) return false;
  MarcasDia m;
  if (!LeerMarcas(p, m)) return fallaApertura(p);
  pasarSobrantes(p, kOperaciones, m.cOperIdx);
  pasarSobrantes(p, kParalelas, m.cOperCodex);
  const QString turno = QStringLiteral("01");
  if (!p.poDBAdmin.EjecutarSentencia(
          p.poCnnLocal,
          QStringLiteral("UPDATE Configuracion SET cCodiTurno = '%1' , nImporApertSol=%2, nImporApertDol=%3, "
                         "cOperId = %4, cOperIdP = %5")
              .arg(turno, TextoDe(LeerImporte(v.txtimporsoles)), TextoDe(LeerImporte(v.TxtImporDolares)), m.cOperIdx,
                   m.cOperCodex),
          true)) {
    return fallaApertura(p);
  }
  // Only now: a desk whose store refused the opening is still closed.
  p.ses.psTurno = turno;
  p.mensajes.mostrar(QStringLiteral("Se ha aperturado la caja."));
  HabilitarBotonesDia(principal, true);
  ProcesoCaja(principal, true);
  return cerrarDiasAnteriores(p, principal, Apertura::EnCurso) || fallaApertura(p);
}

void CompletarApertura(Puesto& p, Principal& principal) {
  (void)cerrarDiasAnteriores(p, principal, Apertura::Reanudada);
}

void CambioTurno(Puesto& p, Principal& v, PantallasPrincipal& pantallas) {
  PrepararOperacion(p, v, pantallas);
  if (AutorizarOperacion(v, pantallas, QStringLiteral("Reporte X"))) (void)ReportesEspeciales(p, PedidoX());
  const QString turno = Derecha(QStringLiteral("00") + TextoDe(Val(p.ses.psTurno) + 1), 2);
  if (!p.poDBAdmin.EjecutarSentencia(p.poCnnLocal,
                                     QStringLiteral("UPDATE Configuracion SET cCodiTurno = '") + turno + u'\'', true)) {
    return;
  }
  p.ses.psTurno = turno;
  p.ses.pbSincronizaMaestros = p.ses.pbSincronizaCierre = false;
  pantallas.sincronizar(false);
  p.ses.pbSincronizaMaestros = true;
  pantallas.rearrancar();
}
