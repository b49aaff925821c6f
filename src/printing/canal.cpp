#include "printing/canal.h"

#include <QFile>
#include <cerrno>

#include "foundation/cfg_admin.h"
#include "foundation/puesto.h"
#include "platform/io/archivo.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "printing/ajustes_impresora.h"

namespace {

const QString kFinLinea = QStringLiteral("\r\n");
const QString kBlanco = QStringLiteral(" ");            // the driver's feed, twice behind a document
const QString kReinicio = QStringLiteral("\x1B@");      // ESC @
const QString kCorte = QStringLiteral("\x1D\x56\x01");  // GS V 1
constexpr int kLineasBloque = 100;
constexpr int kLetrasPorSegundo = 150;

// clang-format off
const struct { QLatin1String palabra; const char* pulso; } kGavetas[] = {
    {QLatin1String("SAMSUNG"), "\x1B\x70\x30\x37\x79"},
    {QLatin1String("EPSON"), "\x1B\x70\x00\x19\xFA"},
    {QLatin1String("START"), "\x1B\x07\x0B\x37\x07"},
};
// clang-format on

QString enLinea(const QString& texto) { return texto + kFinLinea; }

// Paper past the cutter, eight line ends, then the cut.
QString avanceYCorte() { return enLinea(kFinLinea).repeated(4) + enLinea(kCorte); }

QString comoTronco(const QString& tronco) {
  const QString t = Recortar(tronco);
  return t.isEmpty() ? QStringLiteral("textfile") : t;
}

// The printer chosen last; the system's default one until one was chosen.
ImpresoraSistema impresoraActual(Puesto& p) {
  if (p.ses.impresoraActual.isEmpty()) p.ses.impresoraActual = p.puertos.impresoraPorDefecto();
  const auto lista = p.puertos.impresoras();
  for (const auto& i : lista) {
    if (i.nombre == p.ses.impresoraActual) return i;
  }
  return {p.ses.impresoraActual, {}};
}

QString archivoDeEnvio(const Puesto& p, const QString& tronco) {
  return p.rutas.enTemp(tronco + QStringLiteral(".prn"));
}

std::optional<QString> noSePudoEscribir(const QString& archivo, const QString& palabras) {
  return QStringLiteral("No se pudo escribir el archivo de impresión %1: %2.").arg(archivo, palabras);
}

// One send: what the trace and the table of routes look at, read afresh each time.
struct Envio {
  int selector = 0;
  QString archivo, puerto, puertoPrinter;
  AjustesImpresora ajustes;  // of the printer that it goes to

  Envio(Puesto& p, int s, const QString& a)
      : selector(s),
        archivo(a),
        puerto(impresoraActual(p).puerto),
        puertoPrinter(
            LeerParametro(p, QStringLiteral("PARAMETROS"), QStringLiteral("PuertoPrinter"), p.ses.psArchivoCfg)) {
    p.ses.psPuertoPrint = puertoPrinter;
    const bool porRed = p.ses.kPAR_IMPRESORA.startsWith(u'\\');
    const bool serie = !porRed && Izquierda(puerto, 3) == u"COM";
    const QString& suya = selector == kImpresoraPrincipal ? p.ses.kPAR_IMPRESORA : p.ses.kPAR_IMPRESORA_ALTERNA;
    ajustes = LeerAjustes(p, serie ? p.ses.impresoraActual : suya);
  }

  QByteArray bytes(const QString& texto) const { return EnPagina(texto, ajustes.pagina); }
  // Reset, and the code page behind it, since the reset forgets it.
  QString comienzo() const { return enLinea(kReinicio + SeleccionDePagina(ajustes)); }

  QString rastro(const Puesto& p) const {
    return QStringLiteral("p:") + QString::number(selector) + QStringLiteral(";kPAR_IMPRESORA:") +
           p.ses.kPAR_IMPRESORA + QStringLiteral(";printer.Port:") + puerto + QStringLiteral(";psPuertoPrint:") +
           puertoPrinter + QStringLiteral(";");
  }

  std::optional<QString> enviar(Puesto& p) const {
    const bool principal = selector == kImpresoraPrincipal;
    if (p.ses.kPAR_IMPRESORA.startsWith(u'\\')) {  // looked at on both routes
      return p.puertos.copiar(archivo, principal ? p.ses.kPAR_IMPRESORA : p.ses.kPAR_IMPRESORA_ALTERNA);
    }
    if (Izquierda(puerto, 3) == u"COM") {
      p.puertos.enviarSinEsperar(archivo, puerto);
      return {};
    }
    if (!principal) return p.puertos.copiar(archivo, Izquierda(puerto, 4));
    return p.puertos.copiar(archivo, puertoPrinter.isEmpty() ? QStringLiteral("LPT1") : puertoPrinter);
  }
};

std::optional<QString> enviarTexto(Puesto& p, const QString& texto, int selector, const QString& tronco) {
  const QString archivo = archivoDeEnvio(p, tronco);
  const Envio envio(p, selector, archivo);
  const QString todo = envio.comienzo() + enLinea(texto) + avanceYCorte();
  if (const auto e = EscribirBytes(archivo, envio.bytes(todo))) return noSePudoEscribir(archivo, *e);
  p.registro.RegistrarImpresion(envio.rastro(p) + QStringLiteral("kPAR_IMPRESORA_ALTERNA:") +
                                p.ses.kPAR_IMPRESORA_ALTERNA + QStringLiteral(";NameArchivo:") + archivo +
                                QStringLiteral(";"));
  return envio.enviar(p);
}

std::optional<QString> enviarBloques(Puesto& p, const BloquesInforme& b, int selector, int ultimo,
                                     const QString& tronco) {
  const QString archivo = archivoDeEnvio(p, tronco);
  QFile copia(p.rutas.enTemp(tronco + u'_' + FormatearFecha(p.reloj.now(), u"ddmmyyyy") + QStringLiteral(".prn")));
  if (!copia.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
    return noSePudoEscribir(copia.fileName(), PalabrasDeError(errno, copia));
  }
  for (int n = 0; n <= ultimo; ++n) {
    const QString& bloque = b.bloques[static_cast<size_t>(n)];
    const Envio envio(p, selector, archivo);
    const QByteArray bytes = envio.bytes((n == 0 ? envio.comienzo() : QString()) + enLinea(bloque) +
                                         (n == ultimo ? avanceYCorte() : QString()));
    if (const auto e = EscribirBytes(archivo, bytes)) return noSePudoEscribir(archivo, *e);
    if (copia.write(bytes) != bytes.size()) return noSePudoEscribir(copia.fileName(), PalabrasDeError(errno, copia));
    p.registro.RegistrarImpresion(envio.rastro(p));
    if (const auto e = envio.enviar(p)) return e;
    p.reloj.dormir(static_cast<int>(bloque.size() / kLetrasPorSegundo + 1) * 1000);
  }
  return {};
}

// The written line of a drawer's pulse; "" for a model that is none.
QByteArray pulsoDe(const QString& modelo) {
  const QString palabra = Recortar(modelo).toUpper();
  for (const auto& g : kGavetas)
    if (palabra == g.palabra) return QByteArray(g.pulso, 5) + "\r\n";
  return {};
}

void mostrarFallo(Puesto& p, const std::optional<QString>& palabras) {
  if (!palabras) return;
  p.registro.RegistrarErrorLog(QStringLiteral("Impresión fallida: ") + *palabras);
  p.mensajes.mostrar(*palabras);
}

// Chooses the printer of that number; its flag.
int elegir(Puesto& p, int impresora) {
  const bool principal = impresora == kImpresoraPrincipal;
  SeleccionarImpresora(p, principal ? p.ses.kPAR_IMPRESORA : p.ses.kPAR_IMPRESORA_ALTERNA);
  return principal ? p.ses.pnCortaPapel : p.ses.pnCortaPapelAlterna;
}

}  // namespace

void SeleccionarImpresora(Puesto& p, const QString& dispositivo) {
  const auto lista = p.puertos.impresoras();
  for (const auto& i : lista) {
    if (i.nombre != dispositivo) continue;
    p.ses.impresoraActual = i.nombre;
    return;
  }
}

QString CorrelativoImpresion(Puesto& p, int impresora) {
  const QString prn = QString::number(impresora);
  Recordset rs;
  bool bien = p.poDBAdmin.EjecutarConsulta(
      p.poCnnLocal, FormatearSQL(u"SELECT idct + 1 as cod, maxid FROM _tmp1 WHERE prn=$"_sql, {impresora}), rs);
  qint64 numero = 1;
  if (bien && !rs.Eof() && !rs[u"cod"].isNull()) {
    numero = AEntero(Numero(rs[u"cod"]));
    if (numero > AEntero(Numero(rs[u"maxid"]))) numero = 1;
  }
  const QString texto = QString::number(numero);
  bien = bien && p.poDBAdmin.EjecutarSentencia(
                     p.poCnnLocal, FormatearSQL(u"UPDATE _tmp1 set idct=$ WHERE prn=$"_sql, {numero, impresora}));
  const bool principal = impresora == kImpresoraPrincipal;
  p.ses.ultimoPapel = principal ? p.ses.kPAR_IMPRESORA : p.ses.kPAR_IMPRESORA_ALTERNA;
  if (!bien) {
    p.mensajes.mostrar(QStringLiteral("Error al generar Correlativo de impresion "));
    p.registro.RegistrarErrorLog(QStringLiteral("Error al generar numeracion correlativa en impresora Cod ") + prn);
    return {};
  }
  p.ses.ultimoPapel += u' ' + Ceros(texto, 6);
  return Ceros(texto, 6);
}

QString LeerSerieImpresora(Puesto& p, int impresora) {
  Recordset rs;
  if (p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, FormatearSQL(u"SELECT nsmr FROM _tmp1 WHERE prn=$"_sql, {impresora}),
                                   rs) &&
      !rs.Eof()) {
    return LimpiarNulo(rs[u"nsmr"]);
  }
  p.registro.RegistrarErrorLog(QStringLiteral(" No se ha encontrado el codigo de impresora"));
  return {};
}

void ImprimirTextoPuerto(Puesto& p, const QString& texto, int selector, QString& tronco) {
  if (Recortar(tronco).isEmpty()) tronco = comoTronco(tronco);
  mostrarFallo(p, enviarTexto(p, texto, selector, comoTronco(tronco)));
}

void AgregarLineaBloque(BloquesInforme& b, QString& linea) {
  const bool enElUltimo = b.actual + 1 == static_cast<int>(b.bloques.size());
  QString& bloque = b.bloques[static_cast<size_t>(b.actual)];
  if (b.lineas < kLineasBloque || enElUltimo) {
    linea += kFinLinea;
    bloque += linea;
    ++b.lineas;
    return;
  }
  bloque += linea;
  b.lineas = 0;
  ++b.actual;
}

void ImprimirBloquesPuerto(Puesto& p, const BloquesInforme& b, int selector, int ultimo, const QString& tronco) {
  mostrarFallo(p, enviarBloques(p, b, selector, ultimo, comoTronco(tronco)));
}

void AbrirGaveta(Puesto& p, const QString& modelo) {
  const QString archivo = p.rutas.enTemp(QStringLiteral("textfile.prn"));
  const QByteArray linea = pulsoDe(modelo);
  if (EscribirBytes(archivo, linea) || linea.isEmpty()) return;
  (void)p.puertos.copiar(archivo, QStringLiteral("LPT1"));
}

std::optional<QString> ImprimirPrueba(Puesto& p, const QString& lugar, const AjustesImpresora& ajustes,
                                      const QString& modeloGaveta) {
  const QString archivo = archivoDeEnvio(p, QStringLiteral("prueba"));
  const QString letras = QStringLiteral("ÁÉÍÓÚÜÑ áéíóúüñ ¿? ¡! ºª °");
  const QString texto = QStringLiteral("TarvoPos - Página de prueba") + kFinLinea + lugar + kFinLinea +
                        QStringLiteral("Página de códigos: ") + NombrePagina(ajustes.pagina) + kFinLinea + letras +
                        kFinLinea + QStringLiteral("ABCDEFGHIJKLMNÑOPQRSTUVWXYZ") + kFinLinea +
                        QStringLiteral("abcdefghijklmnñopqrstuvwxyz") + kFinLinea +
                        QStringLiteral("123456789012345678901234567890123456789");
  const QString todo = enLinea(kReinicio + SeleccionDePagina(ajustes)) + enLinea(texto) + avanceYCorte();
  const QByteArray bytes = EnPagina(todo, ajustes.pagina) + pulsoDe(modeloGaveta);
  if (const auto e = EscribirBytes(archivo, bytes)) return noSePudoEscribir(archivo, *e);
  return p.puertos.copiar(archivo, lugar);
}

void ImprimirPorControlador(Puesto& p, const DocumentoImpreso& documento, const Letra& letra) {
  mostrarFallo(p, p.puertos.imprimir(impresoraActual(p).nombre, letra.nombre, letra.puntos, documento));
}

void ImprimirDocumento(Puesto& p, const QString& texto, int impresora, const QString& tronco, const Letra& letra) {
  const int corta = elegir(p, impresora);
  QString nombre = tronco;
  if (corta == 0) ImprimirPorControlador(p, {texto, kBlanco, kBlanco}, letra);
  if (corta == 1) ImprimirTextoPuerto(p, texto, impresora, nombre);
}

void ImprimirInforme(Puesto& p, const BloquesInforme& b, int impresora, const QString& tronco, const Letra& letra) {
  const int corta = elegir(p, impresora);
  if (corta == 1) ImprimirBloquesPuerto(p, b, impresora, b.actual, tronco);
  if (corta != 0) return;
  QStringList textos;
  for (int n = 0; n <= b.actual; ++n) textos << b.bloques[static_cast<size_t>(n)];
  ImprimirPorControlador(p, textos << kBlanco << kBlanco, letra);
}

bool CargarCabeceraImpresion(Puesto& p) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u" SELECT * FROM CABECERA_IMPRESION ORDER BY 1"_sql, rs)) {
    return false;
  }
  if (rs.RecordCount() > 0) p.ses.psCabeceraImpresion.clear();
  for (const auto& fila : rs) p.ses.psCabeceraImpresion << LimpiarNulo(fila[u"sCabeDescripcion"]);
  return true;
}
