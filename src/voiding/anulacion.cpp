#include "voiding/anulacion.h"

#include "documento/clase.h"
#include "documento/pasos.h"
#include "documento/ticket.h"
#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "loyalty/puntos.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "printing/canal.h"
#include "store/numeracion.h"
#include "voiding/anulacion_consumo.h"
#include "voiding/anulacion_filas.h"
#include "voiding/pantallas_anulacion.h"

namespace {

const QString kFin = QStringLiteral("\r\n");
const FormaTransaccion kForma{.titulo = QStringLiteral("Producto         Cant. Precio  SubTotal"),
                              .item = QStringLiteral("   ITEM  ")};
const QString kFecha = QStringLiteral("DD/MM/YYYY (DDD)");

// A word in the middle of the paper, by the void ticket's own rule.
QString alCentro(const QString& texto, int blancos) {
  return Derecha(Espacios(blancos) + texto, static_cast<int>(texto.size()) / 2 + 20);
}

// What lives for the length of one void.
struct Anulacion {
  PantallaTransaccion& v;
  PantallasAnulacion& pantallas;
  qint64 codigo = 0;            // the void's own
  bool puntosEnEspera = false;  // they were in the queue of the store, and are no longer
  bool dejaBoton = false;       // ended without an answer: the button stays as it was

  const DocumentoGuardado& t() const { return *v.cargada; }
};

bool exigirCodigo(Puesto&, Anulacion& a) { return EsNumerico(Recortar(a.v.txtTransaccion)); }

bool esLaCargada(const PantallaTransaccion& v) {
  return v.cargada && v.cargada->paralela == v.chkAlterno &&
         v.cargada->codigo == AEntero(Val(Recortar(v.txtTransaccion)));
}

// Another series or number may stand typed, or have been searched among several: then what is loaded isn't what the
// fields say.
bool exigirCampos(Puesto& p, Anulacion& a) {
  if (!esLaCargada(a.v)) return true;  // it will be loaded first
  const bool serie = Recortar(a.v.txtSerie).compare(Recortar(a.t().docSerie), Qt::CaseInsensitive) == 0;
  const QString numero = Recortar(a.v.txtNumero);
  if (serie && numero.isEmpty() == a.t().docNumero.isEmpty() && Val(numero) == Val(a.t().docNumero)) return true;
  p.mensajes.mostrar(QStringLiteral("La serie y el número no son los del documento que se muestra.\n"
                                    "Búsquelo antes de anular."));
  a.dejaBoton = true;
  return false;
}

bool autorizar(Puesto&, Anulacion& a) {
  const auto nombre = a.pantallas.autorizar(QStringLiteral("Anulación de transacción"));
  a.dejaBoton = !nombre || Recortar(*nombre).isEmpty();
  if (!a.dejaBoton) a.v.txtsupervisor = *nombre;
  return !a.dejaBoton;
}

// The code on the screen may have been voided since it was loaded, or belong to another document than the text.
bool mirarEstado(Puesto& p, Anulacion& a) {
  const qint64 codigo = AEntero(Val(Recortar(a.v.txtTransaccion)));
  DocumentoGuardado t;
  const LecturaDocumento lectura = LeerDocumento(p, codigo, a.v.chkAlterno, t);
  if (lectura == LecturaDocumento::Fallo) return false;
  if (lectura == LecturaDocumento::Leida) {
    bool anulada = false;
    if (!LeerAnulada(p, t, anulada)) return false;
    if (anulada) {
      p.mensajes.mostrar(QStringLiteral("Esta transacción ya ha sido anulada"));
      return false;
    }
  }
  if (esLaCargada(a.v)) return true;
  BuscarTransaccion(p, a.v);
  a.dejaBoton = a.v.cargada.has_value();  // now it is on the screen, to be looked at first
  return false;
}

bool mirarOrden(Puesto& p, Anulacion& a) {
  if (!a.v.chkAlterno || Izquierda(Recortar(a.v.txtSerie), 2) != u"OC" ||
      VerificarLiquidacionOC(p, Recortar(a.v.txtSerie), Recortar(a.v.txtNumero))) {
    return true;
  }
  p.mensajes.mostrar(QStringLiteral("La OC tiene una Liquidacion asociada...No se puede eliminar!"));
  a.dejaBoton = true;
  return false;
}

bool confirmar(Puesto& p, Anulacion& a) {
  if (a.t().tipo != TipoOperacion::Liquidado) return true;
  const bool si = p.mensajes.preguntar(QStringLiteral("Este es un documento proveniente de una Liquidación \r"
                                                      "Al Anular el documento se anulara la liquidación \r"
                                                      "Desea Continuar?"),
                                       QStringLiteral("Confirmación"), false);
  a.dejaBoton = !si;
  return si;
}

bool tomarCodigoNuevo(Puesto& p, Anulacion& a) { return CodigoOperacion(p, a.t().paralela, a.codigo); }

ClavePuntos clave(const DocumentoGuardado& t) { return {t.docTipo, t.docSerie, AEntero(Val(t.docNumero))}; }

// One transaction of the store; the box of what failed comes behind it.
bool guardarJuntas(Puesto& p, const std::vector<Sql>& sentencias) {
  Sql laQueFallo;
  const auto error = EjecutarJuntas(p.poCnnLocal, sentencias, &laQueFallo);
  if (!error) return true;
  p.mensajes.mostrar(error->descripcion + QStringLiteral(" - ") + laQueFallo.texto(p.poCnnLocal.dialecto()));
  return false;
}

// All of the store's part at once: the points that wait, the rows, and the liquidation that the document had closed.
bool grabarFilas(Puesto& p, Anulacion& a) {
  const DocumentoGuardado& t = a.t();
  if (t.paralela && t.glosa == kGlosaConsumo) return AnularConsumo(p, t);
  std::vector<Sql> filas;
  if (!LeerPuntosEnEspera(p, clave(t), filas)) return false;
  a.puntosEnEspera = !filas.empty();
  const auto luego = [&filas](const std::vector<Sql>& otras) { filas.insert(filas.end(), otras.begin(), otras.end()); };
  const QString fecha = FormatearFecha(p.reloj.now(), u"DD/MM/YYYY hh:mm");
  luego(t.paralela ? FilasDeParalela(p, t, a.codigo, fecha) : FilasDeVenta(p, t, a.codigo, fecha));
  const bool cierraLiquidacion = t.tipo == TipoOperacion::Liquidado || t.tipo == TipoOperacion::OC;
  if (cierraLiquidacion && t.relacion != 0) luego(FilasDeLiquidacion(t.relacion));
  return guardarJuntas(p, filas);
}

QString textoDelPapel(Puesto& p, const Anulacion& a, int impresora) {
  const BloquesTransaccion& b = a.v.bloques;
  const QDateTime ahora = p.reloj.now();
  const QString anulada = alCentro(QStringLiteral("TRANSACCION ANULADA"), 20) + kFin;
  return b.cabecera + kFin + Espacios(13) + FormatearFecha(ahora, kFecha) + kFin + anulada + b.fecha + kFin + b.cuerpo +
         kFin + b.documento + anulada + kFin + u' ' + Izquierda(p.ses.psUsuario, 10) + u' ' +
         FormatearFecha(ahora, u"hh:mm") + u' ' + kFin + QStringLiteral("Supervisor: ") +
         Izquierda(a.v.txtsupervisor, 10) + u' ' + kFin + QStringLiteral("CAJA: ") + p.ses.psCaja +
         QStringLiteral("   TURNO: ") + p.ses.psTurno + kFin + QStringLiteral("Correlativo: ") +
         CorrelativoImpresion(p, impresora);
}

// The paper stands on the screen as well: that it is voided must be seen, whatever the printer does.
bool imprimirAnulacion(Puesto& p, Anulacion& a) {
  const bool paralela = a.t().paralela;
  const int impresora = paralela ? kImpresoraAlterna : kImpresoraPrincipal;
  a.v.txtTexto = textoDelPapel(p, a, impresora);
  ImprimirDocumento(p, a.v.txtTexto, impresora, paralela ? QString() : QString::number(a.codigo));
  return true;
}

bool extornar(Puesto& p, Anulacion& a) {
  const DocumentoGuardado& t = a.t();
  if (t.tarjeta.isEmpty() || t.idLocal.isEmpty()) return true;
  Extorna_puntos(p, t.tarjeta, a.v.bloques.total, static_cast<int>(AEntero(Val(t.idLocal))), clave(t),
                 a.puntosEnEspera);
  return true;
}

// The payment register of the central database: with it away the void stands all the same.
bool sellarPago(Puesto& p, Anulacion& a) {
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, false, clsDBAdmin::Espera::Venta)) return false;
  const Sql donde = FormatearSQL(u" FechaAnulacion IS NULL AND cSerieDocPago='$' AND CONVERT(INT,NroDocPago)=$"_sql,
                                 {Texto(a.t().docSerie), AEntero(Val(a.t().docNumero))});
  Recordset rs;
  const bool leido = p.poDBAdmin.EjecutarConsulta(central, u"SELECT COUNT(1) TOTAL FROM pagos WHERE"_sql + donde, rs);
  if (leido && Numero(rs[u"TOTAL"]) != 0) {
    (void)p.poDBAdmin.EjecutarSentencia(central, u"UPDATE pagos SET FechaAnulacion = getdate() WHERE"_sql + donde,
                                        true);
  }
  p.poDBAdmin.CerrarBD(central);
  return leido;
}

// clang-format off
const Paso<Anulacion> kPasos[] = {
    {"codigo", exigirCodigo}, {"campos", exigirCampos},           {"supervisor", autorizar}, {"estado", mirarEstado},
    {"orden", mirarOrden},    {"confirmar", confirmar},           {"codigo nuevo", tomarCodigoNuevo},
    {"filas", grabarFilas},   {"ticket", imprimirAnulacion},    {"puntos", extornar},      {"pago", sellarPago},
};
// clang-format on

}  // namespace

void MuestraTransaccion(Puesto& p, PantallaTransaccion& v) {
  const DocumentoGuardado& t = *v.cargada;
  BloquesTransaccion& b = v.bloques;
  b.cabecera = BloqueCabecera(p);
  b.fecha = Espacios(12) + FormatearFecha(t.fecha, kFecha) + kFin;
  const QString palabra = PalabraDe(t.tipo);
  if (!palabra.isEmpty()) b.fecha += alCentro(palabra, 18);
  if (t.tipo == TipoOperacion::Voucher) b.fecha += kFin;
  b.cuerpo = CuerpoTransaccion(t, kForma, b.total);
  b.documento = BloqueDocumento(t);
  v.txtTexto = b.cabecera + kFin + b.fecha + kFin + b.cuerpo + kFin + b.documento;
}

bool VerificarLiquidacionOC(Puesto& p, const QString& serie, const QString& numero) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(u"SELECT  * FROM OperacionParalela WHERE cDocSerie='$' AND cDocCodigo=$"_sql,
                       {Texto(serie), AEntero(Val(numero))}),
          rs)) {
    return false;
  }
  const qint64 relacion = AEntero(Numero(rs[u"cOperCodeRela"]));
  if (relacion == 0) return true;
  return p.poDBAdmin.EjecutarConsulta(
             p.poCnnLocal, FormatearSQL(u"SELECT  * FROM OperacionParalela WHERE cOperCode=$"_sql, {relacion}), rs) &&
         LimpiarNulo(rs[u"cDocTipo"]) != Codigo(TipoDocumento::LIQPAD);
}

void Anular(Puesto& p, PantallaTransaccion& v, PantallasAnulacion& pantallas) {
  Anulacion a{v, pantallas};
  EjecutarPasos<Anulacion>(p, QStringLiteral("Anular"), a, kPasos);
  if (!a.dejaBoton) v.accion = false;
}
