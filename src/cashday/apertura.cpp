#include "cashday/apertura.h"

#include "cashday/marcas.h"
#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

bool consultar(Puesto& p, const Sql& sql, Recordset& rs) { return p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, sql, rs); }

// Where an earlier day may have left rows open, the key that orders them and the column of Configuracion that holds
// the watermark on it.
struct Sobrantes {
  LiteralSql tabla, clave, marca;
};
constexpr Sobrantes kOperaciones{.tabla = u"Operacion"_sql, .clave = u"cOperID"_sql, .marca = u"cOperId"_sql};
constexpr Sobrantes kParalelas{.tabla = u"Operacionparalela"_sql, .clave = u"cOperCode"_sql, .marca = u"cOperIdP"_sql};

constexpr LiteralSql kAnteriores = u"dOperFech < (SELECT max(fec) FROM _Tmp)"_sql;

constexpr double kLimiteApertura = 1e10;  // soles or dollars

enum class Apertura { EnCurso, Reanudada };

// Closes them; an opening under way also writes the watermark anew, both or neither. One that is taken up again finds
// it written and goes by it: what lies above was sold since. `cerradas` tells whether there were any.
bool cerrarAnteriores(Puesto& p, const Sobrantes& s, Apertura apertura, bool& cerradas) {
  cerradas = false;
  Sql cuales = kAnteriores;
  if (apertura == Apertura::Reanudada) {
    cuales += FormatearSQL(u" AND $ <= (SELECT $ FROM Configuracion)"_sql, {s.clave, s.marca});
  }
  Recordset rs;
  if (!consultar(
          p, FormatearSQL(u"SELECT Count(*) As nCount FROM $ Where coperflagabierto = 1 AND $"_sql, {s.tabla, cuales}),
          rs)) {
    return false;
  }
  if (Numero(rs[u"nCount"]) <= 0) return true;
  std::vector<Sql> cierre{FormatearSQL(u"UPDATE $ SET coperflagabierto = '0' WHERE $"_sql, {s.tabla, cuales})};
  if (apertura == Apertura::EnCurso) {
    if (!consultar(p,
                   FormatearSQL(u"SELECT MAX($) AS marca FROM $ Where coperflagabierto = 0 OR $"_sql,
                                {s.clave, s.tabla, kAnteriores}),
                   rs)) {
      return false;
    }
    cierre.push_back(FormatearSQL(u"UPDATE Configuracion SET $ = $"_sql, {s.marca, Cifras(LimpiarNulo(rs[u"marca"]))}));
  }
  if (const auto error = EjecutarJuntas(p.poCnnLocal, cierre)) {
    p.mensajes.mostrar(error->descripcion + QStringLiteral(" - ") + cierre.front().texto(Dialecto::Jet));
    return false;
  }
  cerradas = true;
  p.mensajes.mostrar(QStringLiteral("NO se cerraron operaciones anteriores. \r\nRecuerde que debe procesar el menu "
                                    "SINCRONIZAR DATOS (DIA ANTERIOR) antes del mediodia!!! "),
                     QStringLiteral("Mensaje"));
  p.registro.RegistrarErrorLog(QStringLiteral("frmApertura.cmdGrabar_Click - No se cerraron operaciones"));
  return true;
}

// `ventas` tells whether there were sales among them.
bool cerrarDiasAnteriores(Puesto& p, Apertura apertura, bool& ventas) {
  bool paralelas = false;
  return cerrarAnteriores(p, kOperaciones, apertura, ventas) && cerrarAnteriores(p, kParalelas, apertura, paralelas);
}

// The watermarks of an opening leave out at once what it will close: a desk that dies before it has closed them counts
// no row of yesterday. What can't be read is told where the rows are closed.
void pasarSobrantes(Puesto& p, const Sobrantes& s, QString& marca) {
  Recordset rs;
  if (p.poCnnLocal.consultar(FormatearSQL(u"SELECT MAX($) AS marca FROM $ Where coperflagabierto = 1 AND $"_sql,
                                          {s.clave, s.tabla, kAnteriores}),
                             rs)) {
    return;
  }
  if (Numero(rs[u"marca"]) > Val(marca)) marca = LimpiarNulo(rs[u"marca"]);
}

// Why an amount opens no desk; "" for one that does.
QString defectoDeImporte(const QString& texto) {
  if (!EsNumerico(texto)) return QStringLiteral("no es un número");
  const double valor = LeerImporte(texto);
  if (valor < 0) return QStringLiteral("no puede ser negativo");
  return valor < kLimiteApertura ? QString() : QStringLiteral("tiene más de diez dígitos");
}

// The field of the first amount that opens no desk, which a box has told; "" when both do.
QString importeMalo(Puesto& p, const FrmApertura& v) {
  // clang-format off
  const struct { const char *campo, *moneda; const QString& texto; } importes[] = {
      {"txtimporsoles", "soles", v.txtimporsoles}, {"TxtImporDolares", "dólares", v.TxtImporDolares}};
  // clang-format on
  for (const auto& i : importes) {
    const QString defecto = defectoDeImporte(i.texto);
    if (defecto.isEmpty()) continue;
    p.mensajes.mostrar(QStringLiteral("El importe en %1 %2.\nEscriba un importe como 150.00, o 0.00 si no hay.")
                           .arg(QString::fromUtf8(i.moneda), defecto));
    return QString::fromLatin1(i.campo);
  }
  return {};
}

// False when the store refused one of the statements.
bool abrir(Puesto& p, const FrmApertura& v, ResultadoApertura& r) {
  MarcasDia m;
  if (!LeerMarcas(p, m)) return false;
  pasarSobrantes(p, kOperaciones, m.cOperIdx);
  pasarSobrantes(p, kParalelas, m.cOperCodex);
  const QString turno = QStringLiteral("01");
  if (!p.poDBAdmin.EjecutarSentencia(
          p.poCnnLocal,
          FormatearSQL(u"UPDATE Configuracion SET cCodiTurno = '$' , nImporApertSol=$, nImporApertDol=$, cOperId = $, "
                       "cOperIdP = $"_sql,
                       {Texto(turno), LeerImporte(v.txtimporsoles), LeerImporte(v.TxtImporDolares), Cifras(m.cOperIdx),
                        Cifras(m.cOperCodex)}),
          true)) {
    return false;
  }
  // Only now: a desk whose store refused the opening is still closed.
  p.ses.psTurno = turno;
  p.mensajes.mostrar(QStringLiteral("Se ha aperturado la caja."));
  return cerrarDiasAnteriores(p, Apertura::EnCurso, r.quedoDiaAnterior);
}

}  // namespace

QString MascaraApertura(const QString& texto) {
  return EsNumerico(texto) ? Formatear(LeerImporte(texto), u"###,###,###,##0.00") : texto;
}

ResultadoApertura AbrirCaja(Puesto& p, const FrmApertura& v) {
  ResultadoApertura r;
  r.campoMal = importeMalo(p, v);
  if (!r.campoMal.isEmpty() || AvisarRelojAtrasado(p)) return r;
  r.hecha = abrir(p, v, r);
  if (!r.hecha) p.mensajes.mostrar(QStringLiteral("No se pudo aperturar la Caja."), QStringLiteral("Mensaje"));
  return r;
}

bool CompletarApertura(Puesto& p) {
  bool ventas = false;
  (void)cerrarDiasAnteriores(p, Apertura::Reanudada, ventas);  // the next start tries again
  return ventas;
}
