#include "loyalty/foto_cliente.h"

#include <QDir>
#include <QFileInfo>

#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr int kTicks = 60;

QString carpetaNuevas(const Puesto& p) { return p.rutas.enPrograma(QStringLiteral("Fotos Nuevas")); }

QString nombre(const FotoCliente& f, int numero) {
  return f.prefijo + Rellenar(QString::number(numero), 3, u'0') + u'.' + f.extension;
}

void vaciar(const QString& carpeta) {
  QDir().mkpath(carpeta);
  QDir dir(carpeta);
  for (const QString& archivo : dir.entryList(QDir::Files | QDir::Hidden)) dir.remove(archivo);
}

// The file of the highest number that the camera has left, "" for none.
QString ultimaNueva(const Puesto& p, const FotoCliente& f) {
  const QDir dir(carpetaNuevas(p));
  QString mejor;
  qint64 mayor = -1;
  const QString prefijo = f.prefijo.toUpper(), fin = (u'.' + f.extension).toUpper();
  for (const QString& archivo : dir.entryList(QDir::Files)) {
    const QString a = archivo.toUpper();
    if (!a.startsWith(prefijo) || !a.endsWith(fin)) continue;
    const QString cifras = a.mid(prefijo.size(), a.size() - prefijo.size() - fin.size());
    bool esNumero = false;
    const qint64 n = cifras.toLongLong(&esNumero);
    if (!esNumero || cifras.size() < 3 || n <= mayor) continue;
    mayor = n;
    mejor = dir.filePath(archivo);
  }
  return mejor;
}

// An earlier copy must have ended before its folder is emptied.
void cerrarAnterior(Puesto& p, const QString& titulo) {
  const qint64 proceso = p.programas->buscar(titulo);
  CerrarVentana(p, titulo);
  if (proceso != 0) (void)EsperarProceso(p, proceso);
}

}  // namespace

bool IniciarFoto(Puesto& p, FotoCliente& f) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal, u"SELECT sWebCName, sWebCRout, nUFotNumb, sFotoPref, sFotoExte FROM Configuracion"_sql, rs)) {
    return false;
  }
  const QString titulo = LimpiarNulo(rs[u"sWebCName"]), programa = LimpiarNulo(rs[u"sWebCRout"]);
  const QString consultar = QStringLiteral(" Consultar a su proveedor de servicios.");
  if (titulo.isEmpty() || programa.isEmpty()) {
    p.mensajes.mostrar(QStringLiteral("No se ha definido configuración para el uso de la aplicación del WebCam.") +
                       consultar);
    return false;
  }
  if (!ExisteArchivo(
          p, programa,
          QStringLiteral("Ruta de la aplicación del WebCam definida en la configuración no es válida.") + consultar,
          true)) {
    return false;
  }
  cerrarAnterior(p, titulo);
  vaciar(carpetaNuevas(p));
  const QString ultimo = LimpiarNulo(rs[u"nUFotNumb"]);
  f = {titulo, LimpiarNulo(rs[u"sFotoPref"]), LimpiarNulo(rs[u"sFotoExte"]),
       ultimo.isEmpty() ? 0 : static_cast<int>(AEntero(Val(ultimo))) + 1, 0};
  const QString pedida = QDir(carpetaNuevas(p)).filePath(nombre(f, f.siguiente));
  if (p.programas->iniciar(titulo, programa, {pedida}, carpetaNuevas(p)) != 0) return true;
  f.titulo.clear();
  p.mensajes.mostrar(QStringLiteral("No se pudo iniciar la aplicación del WebCam: ") + programa);
  return false;
}

TickFoto MirarFoto(Puesto& p, FotoCliente& f, QString& ruta) {
  if (++f.ticks > kTicks) {
    TerminarFoto(p, f);
    return TickFoto::SinFoto;
  }
  const QString nueva = ultimaNueva(p, f);
  if (nueva.isEmpty()) return TickFoto::Espera;
  const QString fotos = p.rutas.enPrograma(QStringLiteral("Fotos"));
  const QString destino =
      fotos + u'/' + f.prefijo + Rellenar(QString::number(f.siguiente), 3, u'0') + QStringLiteral(".jpg");
  QDir().mkpath(fotos);
  QFile::remove(destino);
  if (!QFile::rename(nueva, destino)) return TickFoto::Espera;
  // A number that could not be kept is given to the next photograph too, which replaces this one: told by its box.
  (void)p.poDBAdmin.EjecutarSentencia(p.poCnnLocal,
                                      FormatearSQL(u"UPDATE Configuracion SET nUFotNumb = $"_sql, {f.siguiente}), true);
  TerminarFoto(p, f);
  ruta = destino;
  return TickFoto::Lista;
}

void TerminarFoto(Puesto& p, FotoCliente& f) {
  if (f.titulo.isEmpty()) return;
  CerrarVentana(p, f.titulo);
  f.titulo.clear();
}
