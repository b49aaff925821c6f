#include "apoyo/puesto_prueba.h"

#include <gtest/gtest.h>

#include <QFile>

#include "platform/sql/crear_sqlite.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "servidores.h"
#include "store/tablas.h"

namespace {

const QString kConexionServidor =
    QStringLiteral("Provider=SQLOLEDB.1;User ID=;Password=;Initial Catalog=%1;Data Source=sqlite:%1.db");

const QString kConexionLocal = QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=");
const QString kLocal = QStringLiteral("TarvoPos.mdb"), kCentral = QStringLiteral("central.db"),
              kCliente = QStringLiteral("cliente.db");

// The rows of a new desk 00001, beside its tables, in SQLite's own language.
QStringList filasDelPuesto() {
  QStringList s{
      QStringLiteral("INSERT INTO Configuracion (Caja, Almacen, PorcServ, GAVETA, PRINTER, DFlag, iCierreCaja, "
                     "cCodiTurno, cOperId, cOperIdP) VALUES ('00001','01','10','S','EPSON','S',0,'01',0,0)")};
  const struct {
    const char *tipo, *serie;
  } series[] = {{"01", "F01"}, {"02", "001"}, {"10", "OC1"}, {"11", "NC1"},
                {"12", "PA1"}, {"13", "PV1"}, {"14", "LQ1"}};
  for (const auto& f : series) {
    s += QStringLiteral("INSERT INTO Config_Documento (cTipoDoc, cOperCode, nDocCodigo, cSerieDoc) "
                        "VALUES ('%1',0,0,'%2')")
             .arg(QString::fromLatin1(f.tipo), QString::fromLatin1(f.serie));
  }
  for (int n : {1, 2}) {
    s += QStringLiteral("INSERT INTO _Tmp1 (prn, idct, maxid, nsmr, idz, Imac) VALUES (%1,0,999999,'SER-%1',0,0)")
             .arg(n);
  }
  return s;
}

// The three databases of a new desk, made once a test program; each desk works on its own copy.
const QDir& modelo() {
  static const QTemporaryDir carpeta;
  static const QDir dir = [] {
    const QDir d(carpeta.path());
    const std::pair<QString, QStringList> bases[] = {
        {kLocal, tablasDelPuesto() + filasDelPuesto()}, {kCentral, tablasDelCentral()}, {kCliente, tablasDelCliente()}};
    for (const auto& [archivo, sentencias] : bases) {
      const auto error = crearBaseSqlite(d.filePath(archivo), sentencias);
      EXPECT_FALSE(error) << qPrintable(error ? error->descripcion : QString());
    }
    return d;
  }();
  return dir;
}

QString celda(const QVariant& v) {
  if (v.isNull()) return QStringLiteral("Null");
  if (v.typeId() == QMetaType::QDateTime) return FechaISO(v.toDateTime());
  if (v.typeId() == QMetaType::Double) return TextoDe(v.toDouble());
  return v.toString();
}

}  // namespace

std::shared_ptr<void> RelojFijo::cada(int, std::function<void()> f) {
  auto timer = std::make_shared<std::function<void()>>(std::move(f));
  timers_.push_back(timer);
  return timer;
}

void RelojFijo::vencer() {
  const auto timers = timers_;
  for (const auto& debil : timers) {
    if (const auto t = debil.lock()) (*t)();
  }
}

MensajesGuion::~MensajesGuion() {
  for (const auto& e : esperas_) ADD_FAILURE() << "a box stayed away: " << qPrintable(e.texto);
}

void MensajesGuion::espera(const QString& texto, const QString& respuesta) { esperas_.push_back({texto, respuesta}); }

std::optional<QString> MensajesGuion::tomar(const QString& texto, const QString& titulo) {
  vistas.push_back({texto, titulo});
  if (libre_) return respuesta_.isEmpty() ? std::nullopt : std::optional(respuesta_);
  if (esperas_.empty()) {
    ADD_FAILURE() << "a box that nobody expected: " << qPrintable(titulo) << " | " << qPrintable(texto);
    return {};
  }
  const Espera e = esperas_.front();
  esperas_.pop_front();
  EXPECT_TRUE(texto.contains(e.texto)) << "expected: " << qPrintable(e.texto) << "\nshown:    " << qPrintable(texto);
  return e.respuesta;
}

void MensajesGuion::mostrar(const QString& texto, const QString& titulo, Icono) { tomar(texto, titulo); }

bool MensajesGuion::preguntar(const QString& texto, const QString& titulo, bool siPorDefecto) {
  const auto r = tomar(texto, titulo);
  return r && !r->isEmpty() ? *r == u"Sí" : siPorDefecto;
}

std::optional<QString> MensajesGuion::pedir(const QString& texto, const QString& titulo, const QString& porDefecto) {
  const auto r = tomar(texto, titulo);
  if (!r) return porDefecto;
  return *r == u"Cancelar" ? std::nullopt : std::optional(*r);
}

std::optional<QString> PuertosRegistro::copiar(const QString& archivo, const QString& puerto) {
  if (!fallo.isEmpty()) return fallo;
  QFile f(archivo);
  if (!f.open(QIODevice::ReadOnly)) return f.errorString();
  papel[puerto] += f.readAll();
  return {};
}

std::optional<QString> PuertosRegistro::imprimir(const QString& impresora, const QString&, int,
                                                 const DocumentoImpreso& documento) {
  if (!fallo.isEmpty()) return fallo;
  impresos.emplace_back(impresora, documento.textos());
  return {};
}

PartesPrueba::PartesPrueba(const Envolver& envolver)
    : reales(
          motoresDelSistema(carpeta.path(), {[this] { return relojFijo.now(); }, procedimientosDeServidores(), {}})) {
  if (envolver) envueltos = envolver(*reales);
}

PuestoPrueba::PuestoPrueba(const Envolver& envolver)
    : PartesPrueba(envolver),
      Puesto(losMotores(), registroPuertos, relojFijo, guion, salidaPrueba, rutasDe(carpeta.path())) {
  QDir(rutas.programa).mkpath(rutas.temp);
  for (const QString& archivo : {kLocal, kCentral, kCliente}) {
    EXPECT_TRUE(QFile::copy(modelo().filePath(archivo), rutas.enPrograma(archivo)));
  }
  ses.psRutaBD = rutas.enPrograma(kLocal);
  ses.psArchivoCfg = rutas.enPrograma(QStringLiteral("KEB.cfg"));
  ses.psConexionCentral = kConexionServidor.arg(QStringLiteral("central"));
  ses.psConexionCliente = kConexionServidor.arg(QStringLiteral("cliente"));
  ses.psFORMATO_FECHA_SQL_SERVER_INS = QStringLiteral("yyyy/mm/dd hh:nn:ss");
  ses.psCaja = QStringLiteral("00001");
  ses.psAlmacen = QStringLiteral("01");
  ses.psPorcServ = QStringLiteral("10");
  ses.psTurno = QStringLiteral("01");
  ses.psUsuario = QStringLiteral("CAJERO");
  ses.psPerfilUsuario = QStringLiteral("2");
  ses.psDFlag = QStringLiteral("S");
  ses.pnIGV = 0.18;
  ses.pnTipoCambio = 3;
  ses.pdTipoCambio = reloj.today();
  ses.kPAR_IMPRESORA = QStringLiteral("Ticketera");
  ses.kPAR_IMPRESORA_ALTERNA = QStringLiteral("Alterna");
  ses.pnCortaPapel = ses.pnCortaPapelAlterna = 1;
  ses.psSerieImpresora = QStringLiteral("SER-1");
  ses.psSerieImpresoraAlterna = QStringLiteral("SER-2");

  const auto error = poCnnLocal.abrir(motores, kConexionLocal + ses.psRutaBD, 1000);
  EXPECT_FALSE(error) << qPrintable(error ? error->descripcion : QString());
}

QString PuestoPrueba::filas(Conexion& cnn, const QString& sql) {
  Recordset rs;
  if (const auto error = cnn.consultar(Sql::crudo(sql), rs)) return QStringLiteral("error: ") + error->descripcion;
  QStringList lineas;
  for (const auto& fila : rs) {
    QStringList celdas;
    for (int i = 0; i < rs.campos().size(); ++i) celdas += celda(fila[i]);
    lineas += celdas.join(u'|');
  }
  return lineas.join(u'\n');
}

void PuestoPrueba::ejecuta(Conexion& cnn, const QString& sql) {
  const auto error = cnn.ejecutar(Sql::crudo(sql));
  EXPECT_FALSE(error) << qPrintable(sql) << "\n" << qPrintable(error ? error->descripcion : QString());
}

void PuestoPrueba::articulo(int codigo, const QString& corta, double precio, bool servicio, const QString& catalogo) {
  ejecuta(QStringLiteral("INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, "
                         "cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) "
                         "VALUES ('01', %1, '%2', '%2', %3, 1, 1, 0, 0, %4, '%5')")
              .arg(codigo)
              .arg(corta, TextoDe(precio))
              .arg(servicio ? 1 : 0)
              .arg(catalogo));
}
