#include "admin/simula_caja.h"

#include "admin/ordenes.h"
#include "admin/pantallas_mudas.h"
#include "admin/restaurar.h"
#include "admin/simula_papel.h"
#include "app/arranque.h"
#include "app/login.h"
#include "backoffice/tipo_cambio.h"
#include "cashday/apertura.h"
#include "cashday/cierre.h"
#include "foundation/respaldo.h"
#include "loyalty/pendientes.h"
#include "platform/text/numero.h"
#include "servidores.h"
#include "store/codigos.h"
#include "sync/sincronizar.h"
#include "sync/updt.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }
QString celda(const QVariant& v) { return v.typeId() == QMetaType::Double ? TextoDe(v.toDouble()) : v.toString(); }

constexpr int kMinutosPorActo = 11;
constexpr int kDiasEntreClaves = 10;  // a password is slow on purpose, and no simulation of its own

const PasosArranque kPasos{EnviarPendientesCliente, [](Puesto& p) {
                             FrmUpdt pantalla(p);
                             Sincronizar(p, pantalla);
                           }};

class MenuSimulado final : public PrincipalDelDia {
 public:
  explicit MenuSimulado(Puesto& p) : PrincipalDelDia(p), suyo_(p) {}
  void respaldar(MotivoRespaldo motivo) override { RespaldarSesion(suyo_, motivo); }
  void contactarCentral() override { (void)ContactarCentral(suyo_, kPasos); }

 private:
  Puesto& suyo_;
};

}  // namespace

// Not on the first: a desk that has never met its centre does not start without it, however slow the machine.
bool ServidorCaeElDia(const PlanSimulacion& plan, int dia) {
  return dia > 1 && plan.con(kFallasSimuladas[2]) && plan.puertoLocal > 0 &&
         Azar(SemillaDe(plan, 0, dia, 0, 7)).unoDe(4);
}

CajaSimulada::CajaSimulada(const PlanSimulacion& plan, int caja)
    : plan_(plan),
      caja_(caja),
      carpeta_(plan.caja(caja)),
      libro_(carpeta_),
      puertos_(carpeta_),
      reales_(motoresDelSistema(carpeta_, {[this] { return reloj_.now(); }, procedimientosDeServidores(), {}})),
      puertosConFallas_(puertos_, fallas_) {
  Motores* alla = reales_.get();
  if (plan.puertoLocal > 0 && alambre_.tender(plan.puertoLocal)) {
    desviados_ = std::make_unique<MotoresPorAlambre>(*alla, plan.puertoLocal, alambre_);
    alla = desviados_.get();
  }
  motores_ = std::make_unique<MotoresConFallas>(*alla, fallas_);
}

CajaSimulada::~CajaSimulada() = default;

// Each desk's clock goes some minutes before or behind; on another day others.
void CajaSimulada::ponerReloj(int acto) {
  acto_ = acto;
  azar_ = Azar(SemillaDe(plan_, caja_, dia_, acto, kActo));
  const int desfase = Azar(SemillaDe(plan_, caja_, dia_, 0, kReloj)).entre(-9, 9);
  reloj_.ahora = QDateTime(DiaSimulado(dia_), QTime(8, 0))
                     .addSecs(60 * (desfase + kMinutosPorActo * acto) + azar_.entre(0, 60 * kMinutosPorActo - 90));
}

void CajaSimulada::diferencia(const QString& texto) {
  const QString todo = q("caja %1, día %2, acto %3: ").arg(caja_).arg(dia_).arg(acto_) + texto;
  libro_.diferencia(todo);
  Quejarse(todo);
}

// The rows of a query on the store, beside the program's own connection.
QStringList CajaSimulada::filas(const Sql& sql) {
  Conexion cnn;
  Recordset rs;
  const QString cadena =
      q("driver={Microsoft Access Driver (*.mdb)};DBQ=") + carpeta_ + QStringLiteral("/TarvoPos.mdb");
  auto error = cnn.abrir(*reales_, cadena, 5000);
  if (!error) error = cnn.consultar(sql, rs);
  if (error) qFatal("%s: %s", qPrintable(sql.texto(Dialecto::Jet)), qPrintable(error->descripcion));
  QStringList r;
  for (const auto& fila : rs) {
    QStringList celdas;
    for (int i = 0; i < rs.campos().size(); ++i) celdas << celda(fila[i]);
    r << celdas.join(u'|');
  }
  return r;
}

// A fault comes once: an act that is done again after its kill goes through.
bool CajaSimulada::armar(int acto, int sentencias, int viajes) {
  Azar a(SemillaDe(plan_, caja_, dia_, acto, kAveria));
  const bool mata = plan_.con(kFallasSimuladas[0]) && a.unoDe(sentencias > 100 ? 7 : 25);
  const bool corta = !mata && plan_.con(kFallasSimuladas[1]) && a.unoDe(sentencias > 100 ? 5 : 12);
  const QString clave = q("%1/%2").arg(dia_).arg(acto);
  if ((!mata && !corta) || libro_.veces.contains(clave)) return false;
  libro_.averia(clave);
  if (mata) {
    const int n = a.entre(1, sentencias);
    fallas_.matar(n, a.unoDe(2) ? Fallas::Momento::Antes : Fallas::Momento::Despues);
  } else {
    const int n = a.entre(1, viajes);
    const bool perdida = a.unoDe(2);
    alambre_.cortar(n, perdida, a.unoDe(2));
  }
  return corta;
}

// True when the wire was cut.
bool CajaSimulada::desarmar() {
  fallas_.matar(0, Fallas::Momento::Antes);
  return alambre_.reponer();
}

bool CajaSimulada::darClave() {
  Login login;
  CargarLogin(*p_, login);
  login.txtUsuario = q("CAJERO");
  login.txtPassword = q("caja");
  ProbarLogin(*p_, login);
  return login.aceptado;
}

bool CajaSimulada::entrar() {
  try {
    Arrancar(*p_, kPasos);
    const bool entro = dia_ % kDiasEntreClaves != 1 || darClave();
    p_->ses.psUsuario = q("CAJERO");
    p_->ses.psPerfilUsuario = q("2");
    ventana_ = {};
    CargarPrincipal(*p_, ventana_);
    return entro;
  } catch (const ProgramaTerminado&) {
    return false;
  }
}

bool CajaSimulada::arrancar(bool conAveria) {
  for (int vez = 0; vez < 3; ++vez) {
    pantalla_.reset();
    p_.reset();
    p_ = std::make_unique<Puesto>(*motores_, puertosConFallas_, reloj_, persona_, salida_, rutasDe(carpeta_));
    persona_.cajas.clear();
    if (conAveria && vez == 0) (void)armar(0, 200, 120);
    const bool bien = entrar();
    (void)desarmar();
    if (bien) return true;
  }
  diferencia(q("la caja no arranca: ") + persona_.cajas.join(u'/'));
  return false;
}

void CajaSimulada::registrarCambio() {
  TipoCambio v;
  if (!CargarTipoCambio(*p_, ModoDetalle::Nuevo, {}, v)) return;
  v.txtTC = q("3.%1").arg(70 + dia_ % 10);
  (void)GuardarTipoCambio(*p_, v);
}

// What the main window's timer does between acts.
void CajaSimulada::latir() {
  MenuSimulado menu(*p_);
  RevisarEntreActos(*p_, menu);
}

void CajaSimulada::abrir() {
  if (cifra(FormatearSQL(u"SELECT COUNT(*) FROM Tipo_Cambio WHERE dTipoCambFech = $"_sql, {DiaSimulado(dia_)})) == 0) {
    registrarCambio();
  }
  if (!p_->ses.psTurno.trimmed().isEmpty()) return;
  FrmApertura v;
  v.txtimporsoles = QString::number(azar_.entre(0, 30) * 10);
  v.TxtImporDolares = QString::number(azar_.entre(0, 5) * 10);
  if (!AbrirCaja(*p_, v).hecha) diferencia(q("la caja no abre: ") + persona_.cajas.join(u'/'));
}

// Closed on this day, though the book has not seen it.
bool CajaSimulada::cerrado() {
  return libro_.vistos.contains(dia_) && p_->ses.psTurno.trimmed().isEmpty() && !ventana_.cierreInterrumpido &&
         cifra(FormatearSQL(u"SELECT COUNT(*) FROM _Tmp WHERE prn = 1 AND fec >= $"_sql, {DiaSimulado(dia_)})) > 0;
}

// The rows of the day as the centre must hold them; a parallel document that was voided never goes there.
QStringList CajaSimulada::filasDelDia(bool abiertas) {
  const auto delDia = [&](LiteralSql columnas) {
    return ConCodigos(FormatearSQL(columnas, {DiaSimulado(dia_), DiaSimulado(dia_ + 1)})) +
           (abiertas ? Sql(u" AND o.cOperFlagAbierto = 1"_sql) : Sql());
  };
  const std::pair<QChar, Sql> clases[] = {
      {u'O', delDia(u"SELECT IIF(ISNULL(o.cDocSerie),'',o.cDocSerie), o.cDocCodigo, o.cOperCode, "
                    "FORMAT(o.dOperFech,'yyyy-mm-dd hh:nn:ss'), o.cProdCode, o.nProdCant, o.nProdPrecUnit, o.nDscto, "
                    "o.cOperFlagAnula, o.cOperTipo FROM Operacion o WHERE o.cProdCode <> 0 AND o.dOperFech >= $ AND "
                    "o.dOperFech < $"_sql)},
      {u'P',
       delDia(u"SELECT o.cDocSerie, o.cDocCodigo, o.cOperCode, FORMAT(o.dOperFech,'yyyy-mm-dd hh:nn:ss'), "
              "o.nMontoSoles, o.cOperTipo FROM OperacionParalela o WHERE o.cOperTipo BETWEEN {OC} AND {LIQPAD} AND "
              "o.cOperCodeAnul = 0 AND NOT o.cOperCode IN (SELECT cOperCodeAnul FROM OperacionParalela) AND "
              "o.dOperFech >= $ AND o.dOperFech < $"_sql)},
      {u'L',
       delDia(u"SELECT o.cDocSerie, o.cDocCodigo, o.cOperCode, l.cProdCode, l.nProdCant, l.nProdPrecUnit, l.nDscto "
              "FROM OperacionParalela o INNER JOIN OperacionParalelaProducto l ON l.cOperCode = o.cOperCode WHERE "
              "o.cOperTipo BETWEEN {OC} AND {LIQPAD} AND o.cOperCodeAnul = 0 AND l.cProdCode <> 0 AND NOT "
              "o.cOperCode IN (SELECT cOperCodeAnul FROM OperacionParalela) AND o.dOperFech >= $ AND o.dOperFech "
              "< $"_sql)}};
  QStringList r;
  for (const auto& [clase, sql] : clases) {
    for (const QString& f : filas(sql)) r << QString(clase) + u'|' + f;
  }
  return r;
}

void CajaSimulada::cerrar() {
  const int acto = acto_;
  qint64 vendido = 0, ordenes = 0;
  for (const Asiento& a : libro_.asientos) {
    if (a.dia != dia_ || a.perdido || a.anulado) continue;
    if (a.tipo == u"01" || a.tipo == u"02") vendido += a.total;
    if (a.tipo == u"10") ordenes += a.total;
  }
  for (int vez = 0; vez < 5; ++vez) {
    if (cerrado()) break;
    if (vez > 0) reloj_.ahora = reloj_.ahora.addSecs(60);
    persona_.cajas.clear();
    MenuSimulado menu(*p_);
    PrepararOperacion(*p_, ventana_, menu);
    (void)armar(acto, 400, 250);
    try {
      CerrarCaja(*p_, ventana_, menu, [](const QString&) {});
    } catch (const ProgramaTerminado&) {
    }
    (void)desarmar();
  }
  if (!cerrado()) return diferencia(q("la caja no cierra: ") + persona_.cajas.join(u'/'));
  if (const qint64 z = VendidoEnUltimoZ(carpeta_); z != vendido) {
    diferencia(q("el Z dice %1 céntimos y se vendieron %2").arg(z).arg(vendido));
  }
  libro_.guardarFilas(dia_, filasDelDia(false));
  libro_.cerrar(dia_, vendido + ordenes);
}

// The store is put back from the copy of an earlier closing; the shop tells the last numbers that it has on paper.
void CajaSimulada::restaurar(int acto, int perdido) {
  libro_.averia(q("%1/restaura").arg(dia_));
  p_.reset();
  pantalla_.reset();
  QStringList cierres, dicho;
  const QString hasta = DiaSimulado(perdido).toString(q("yyyyMMdd"));
  for (const QString& c : CopiasEn(carpeta_ + q("/respaldos"))) {
    const QDate dia = QDate::fromString(c.left(8), q("yyyyMMdd"));
    if (c.contains(u"cierre") && c.left(8) < hasta && !libro_.diasPerdidos.contains(dia)) cierres << c;
  }
  if (cierres.isEmpty()) return;
  const auto desde = static_cast<int>(DiaSimulado(0).daysTo(QDate::fromString(cierres[0].left(8), q("yyyyMMdd")))) + 1;
  PedidoRestaurar pedido{carpeta_ + q("/respaldos/") + cierres[0], carpeta_, reloj_.ahora};
  std::map<QString, qint64> ultimos;
  for (const TicketEnPapel& t : TicketsEnPapel(carpeta_)) {
    qint64& ultimo = t.fiscal() ? pedido.ultimoDocumento : ultimos[t.serie];
    ultimo = std::max(ultimo, t.numero);
  }
  pedido.ultimosParalelos.assign(ultimos.begin(), ultimos.end());
  if (perdido == dia_) libro_.guardarFilas(dia_, filasDelDia(true));
  const auto error = RestaurarPuesto(pedido, dicho);
  if (error) return diferencia(q("no se restaura: ") + *error);
  libro_.restaurar(desde, dia_);
  ponerReloj(acto);
}

void CajaSimulada::restaurarAlAmanecer() {
  if (dia_ < 3 || !plan_.con(kFallasSimuladas[3]) || libro_.vistos.contains(dia_)) return;
  if (libro_.veces.contains(q("%1/restaura").arg(dia_))) return;
  if (Azar(SemillaDe(plan_, caja_, dia_, 0, kRestaura)).unoDe(16)) restaurar(0, dia_ - 1);
}

int CajaSimulada::jugar(int dia) {
  dia_ = dia;
  (void)libro_.leer();
  if (libro_.cierres.contains(dia)) return kBien;
  int siguiente = libro_.vistos.contains(dia) ? libro_.vistos[dia] + 1 : 1;
  ponerReloj(siguiente - 1);
  restaurarAlAmanecer();
  if (!arrancar(siguiente == 1)) return kFallo;
  if (libro_.abierto) mirar(*libro_.abierto, true, false, 1);
  const int actos = plan_.operaciones + Azar(SemillaDe(plan_, caja_, dia, 0, kActo)).entre(-3, 3);
  const int aMediodia = dia > 1 && plan_.con(kFallasSimuladas[3]) &&
                                !libro_.veces.contains(q("%1/restaura").arg(dia)) &&
                                Azar(SemillaDe(plan_, caja_, dia, 1, kRestaura)).unoDe(16)
                            ? actos / 2
                            : -1;
  ponerReloj(siguiente);
  if (!cerrado() && !ventana_.cierreInterrumpido) {
    for (abrir(); siguiente <= actos; ++siguiente) {
      ponerReloj(siguiente);
      if (siguiente == aMediodia) {
        restaurar(siguiente, dia);
        if (!arrancar(false)) return kFallo;
        abrir();
        venta();  // what was sold before is gone, and a day without a sale can't be closed
        continue;
      }
      acto(siguiente);
    }
  }
  ponerReloj(std::max(actos, siguiente) + 1);
  cerrar();
  p_.reset();
  return libro_.cierres.contains(dia) ? kBien : kFallo;
}

// Points of a card that two customers hold wait on for its site, which only they could tell.
int CajaSimulada::sincronizarTodo(int dia) {
  dia_ = dia;
  (void)libro_.leer();
  ponerReloj(0);
  for (int vez = 0; vez < 3; ++vez) {
    if (!arrancar(false)) return kFallo;
    const QString faltan =
        filas(u"SELECT COUNT(*), (SELECT COUNT(*) FROM CabeceraZ WHERE bFlagSincro = 0), (SELECT COUNT(*) FROM "
              "Acumulacion_Punto WHERE cSincroFlag = 0 AND IdLocal <> 0) FROM Operacion WHERE cProdCode <> 0 AND "
              "cOperFlagAbierto = 0 AND cFlagSincronizacion <> '1'"_sql)
            .value(0);
    p_.reset();
    if (faltan == u"0|0|0") return kBien;
    if (vez == 2) diferencia(q("queda por enviar (operaciones, Z, puntos): ") + faltan);
  }
  return kFallo;
}
