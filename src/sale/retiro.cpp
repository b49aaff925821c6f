#include "sale/retiro.h"

#include "documento/importe_tecleado.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "printing/canal.h"
#include "store/numeracion.h"

namespace {

constexpr int kMargenCabecera = 14;
constexpr int kPuntosMonto = 9;
const QString kFinLinea = QStringLiteral("\r\n");

std::optional<double> monto(Puesto& p, const Sql& sql) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, sql, rs)) return {};
  return rs.Eof() ? 0 : Numero(rs[u"Monto"]);
}

QString centrada(const QString& linea) {
  return Derecha(Espacios(kMargenCabecera) + linea, static_cast<int>(linea.size() / 2) + kMargenCabecera);
}

QString alInicio(const QString& texto, int ancho) {
  return texto + Espacios(std::max(0, ancho - static_cast<int>(texto.size())));
}

bool grabar(Puesto& p, double importe, qint64 codigo, const QDateTime& momento) {
  const Sql sql =
      FormatearSQL(u"INSERT INTO OPERACION (cOperCode, cUserDesc, nProdCant, nProdPrecUnit, dOperFech, cOperTipo, "
                   "cCajaCodi, cTurnoCodi) VALUES($, '$', $, $, '$', $, '$', '$')"_sql,
                   {codigo, Texto(p.ses.psUsuario), 1, importe, Texto(FormatearFecha(momento, u"DD/MM/YYYY hh:mm")),
                    Codigo(TipoOperacion::Retiro), Texto(p.ses.psCaja), Texto(p.ses.psTurno)});
  return p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, sql, true);
}

}  // namespace

QString MontoRetiro(const QString& texto) { return ImporteTecleado(texto, u"###,###,###,##0.00"); }

std::optional<bool> VerificaSaldo(Puesto& p, double importe) {
  const auto vendido = monto(p, FormatearSQL(u" SELECT SUM(nProdCant*nProdPrecUnit) AS Monto FROM Operacion"
                                             " WHERE cOperFlagAbierto=1 AND cOperTipo=$"_sql,
                                             {Codigo(TipoOperacion::Efectivo)}));
  if (!vendido) return {};
  const auto paralelo = monto(p, u" SELECT SUM(nMontoSoles) AS Monto FROM OperacionParalela "
                                 " WHERE cOperFlagAbierto=1 AND cOperCodeAnul=0 "_sql);
  if (!paralelo) return {};
  // To cents: the sum of doubles must not fall short of an amount that it equals on paper.
  const double saldo = Redondear(*vendido + *paralelo, 2);
  return saldo > 0 && saldo >= importe;
}

DocumentoImpreso ReciboRetiro(const TextosPapel& textos, const QStringList& cabecera, double importe,
                              const QString& usuario, qint64 codigo, const QDateTime& momento) {
  QString arriba;
  for (const QString& linea : QStringList{textos.Tienda} + cabecera) {
    if (!Recortar(linea).isEmpty()) arriba += centrada(linea) + kFinLinea;
  }
  return {arriba + kFinLinea + kFinLinea,
          Espacios(6) + FormatearFecha(momento, u"DD/MM/YYYY (DDD)"),
          {alInicio(textos.TituloRetiro, 9) + kFinLinea +
               Derecha(Espacios(14) + u'*' + Formatear(importe, u"###,###,##0.00"), 15),
           kPuntosMonto, true},
          QStringLiteral(" "),
          u' ' + Izquierda(usuario, 10) + u' ' + FormatearFecha(momento, u"hh:mm") + u' ' +
              Ceros(QString::number(codigo), 6),
          QStringLiteral(" "),
          QStringLiteral(" ")};
}

bool Retirar(Puesto& p, const QString& txtMonto) {
  const double importe = LeerImporte(txtMonto);
  const auto alcanza = VerificaSaldo(p, importe);
  if (!alcanza) return false;
  const QString pregunta =
      *alcanza ? QStringLiteral("Se registrará un retiro de ") + txtMonto + QStringLiteral(" ¿Desea continuar?")
               : QStringLiteral("No cuenta con saldo suficiente para realizar esta operación ¿Desea continuar?");
  if (!p.mensajes.preguntar(pregunta, Mensajes::kTitulo, false)) return false;
  qint64 codigo = 0;
  // The header before the row: once the money is written down, nothing but the printer can keep its receipt away.
  if (!CodigoOperacion(p, false, codigo) || !CargarCabeceraImpresion(p)) return false;
  const QDateTime momento = p.reloj.now();
  if (!grabar(p, importe, codigo, momento)) return false;
  ImprimirPorControlador(
      p, ReciboRetiro(p.ses.textosPapel, p.ses.psCabeceraImpresion, importe, p.ses.psUsuario, codigo, momento));
  p.mensajes.mostrar(QStringLiteral("Se ha registrado un retiro por ") + txtMonto + u'.');
  return true;
}
