#include "app/primer_inicio.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "alta/autoarranque.h"
#include "alta/crear_puesto.h"
#include "alta/crear_servidor.h"
#include "foundation/puesto.h"
#include "platform/text/texto.h"

namespace {

DatosPuesto datosEscritos(const Puesto& p, const PrimerInicio& v) {
  DatosPuesto d;
  d.carpeta = p.rutas.programa;
  d.caja = Recortar(v.txtCaja);
  d.almacen = Recortar(v.txtAlmacen);
  d.servicio = Recortar(v.txtServicio);
  d.central = Recortar(v.txtCentral);
  d.cliente = Recortar(v.txtCliente);
  d.accesoCentral = {Recortar(v.txtBaseCentral), Recortar(v.txtUsuarioCentral), Recortar(v.txtClaveCentral)};
  d.accesoCliente = {Recortar(v.txtBaseCliente), Recortar(v.txtUsuarioCliente), Recortar(v.txtClaveCliente)};
  d.usuario = Recortar(v.txtUsuario);
  d.clave = Recortar(v.txtPassword);
  d.ahora = p.reloj.now();
  return d;
}

QString estadoDe(Puesto& p, const DatosPuesto& d, BaseServidor base) {
  const auto archivo = ArchivoDeServidor(base == BaseServidor::Central ? d.central : d.cliente, d.carpeta);
  if (archivo && !QFileInfo::exists(*archivo)) return QStringLiteral("se creará en esta computadora.");
  Conexion cnn;
  if (p.poDBAdmin.AbrirBD(cnn, CadenaDelServidor(d, base))) return QStringLiteral("responde.");
  return QStringLiteral("no responde: ") + p.poDBAdmin.ultimoFallo();
}

}  // namespace

bool FaltaElPuesto(const Puesto& p) {
  return !QFileInfo::exists(p.rutas.enPrograma(QStringLiteral("TarvoPos.mdb"))) &&
         !QFileInfo::exists(p.rutas.enPrograma(QStringLiteral("KEB.cfg")));
}

bool CrearPrimerPuesto(Puesto& p, const PrimerInicio& v, QString& foco) {
  // clang-format off
  const struct { const QString& texto; const char *campo, *aviso; } kObligatorios[] = {
      {v.txtCaja, "txtCaja", "Ingresar código de caja"},
      {v.txtAlmacen, "txtAlmacen", "Ingresar código de almacén"},
      {v.txtServicio, "txtServicio", "Ingresar porcentaje de servicio; sin servicio, 0"},
      {v.txtCentral, "txtCentral", "Ingresar servidor central"},
      {v.txtCliente, "txtCliente", "Ingresar servidor de clientes"},
      {v.txtUsuario, "txtUsuario", "Ingresar Nombre de Usuario"},
      {v.txtPassword, "txtPassword", "Ingresar Password de Usuario"},
      {v.txtReingresarPassword, "txtReingresarPassword", "Reingresar Password de Usuario"},
  };
  // clang-format on
  for (const auto& c : kObligatorios) {
    if (!Recortar(c.texto).isEmpty()) continue;
    foco = QString::fromLatin1(c.campo);
    p.mensajes.mostrar(QString::fromUtf8(c.aviso));
    return false;
  }
  if (Recortar(v.txtPassword) != Recortar(v.txtReingresarPassword)) {
    foco = QStringLiteral("txtReingresarPassword");
    p.mensajes.mostrar(QStringLiteral("Password reingresado incorrecto"));
    return false;
  }
  const DatosPuesto d = datosEscritos(p, v);
  QStringList dicho;
  if (const auto error = CrearPuesto(d, &dicho)) {
    foco.clear();
    p.mensajes.mostrar(*error);
    return false;
  }
  for (const QString& aviso : dicho + AvisosDePuesto(d)) p.mensajes.mostrar(aviso);
  if (!v.chkAutoarranque) return true;
  if (const auto error = PonerAutoarranque(QCoreApplication::applicationFilePath(), p.rutas.programa)) {
    p.mensajes.mostrar(QStringLiteral("La caja quedó lista, pero no se abrirá sola: ") + *error);
  }
  return true;
}

void ProbarServidores(Puesto& p, const PrimerInicio& v) {
  const DatosPuesto d = datosEscritos(p, v);
  p.mensajes.mostrar(
      QStringLiteral("Servidor central %1: %2\nServidor de clientes %3: %4")
          .arg(d.central, estadoDe(p, d, BaseServidor::Central), d.cliente, estadoDe(p, d, BaseServidor::Cliente)));
}
