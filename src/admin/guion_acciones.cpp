#include "admin/guion_acciones.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QPainter>
#include <QPixmap>
#include <QThread>

#include "admin/guion_controles.h"
#include "admin/guion_revisa.h"
#include "admin/guion_teclas.h"
#include "platform/io/reloj_sistema.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"

namespace {

constexpr int kEspera_ms = 10'000;
constexpr int kPausaEscaner_ms = 500, kEscaner_ms = 4;  // before a code, between its keys

std::deque<PasoGuion> uno(std::function<void()> f) {
  return {[f = std::move(f)] {
    f();
    return true;
  }};
}

bool siNo(const QString& palabra) {
  for (const auto& si : {QStringLiteral("si"), QStringLiteral("sí")})
    if (palabra.compare(si, Qt::CaseInsensitive) == 0) return true;
  if (palabra.compare(QStringLiteral("no"), Qt::CaseInsensitive) == 0) return false;
  throw ErrorGuion{QStringLiteral("se escribe si o no, no «%1»").arg(palabra)};
}

}  // namespace

std::deque<PasoGuion> AccionesGuion::pasos(const Accion& a) {
  // clang-format off
  static const struct { QStringView verbo; Metodo metodo; } kMetodos[] = {
      {u"reloj", &AccionesGuion::reloj},       {u"pasa", &AccionesGuion::pasa},
      {u"inicia", &AccionesGuion::inicia},     {u"termina", &AccionesGuion::termina},
      {u"espera", &AccionesGuion::espera},     {u"escribe", &AccionesGuion::escribe},
      {u"tecla", &AccionesGuion::tecla},       {u"ritmo", &AccionesGuion::ritmo},
      {u"escanea", &AccionesGuion::escanea},   {u"clic", &AccionesGuion::clic},
      {u"dobleclic", &AccionesGuion::fila},    {u"fila", &AccionesGuion::fila},
      {u"elige", &AccionesGuion::elige},       {u"celda", &AccionesGuion::celda},
      {u"marca", &AccionesGuion::marca},       {u"responde", &AccionesGuion::responde},
      {u"lee", &AccionesGuion::lee},           {u"foco", &AccionesGuion::foco},
      {u"estado", &AccionesGuion::estado},     {u"captura", &AccionesGuion::captura},
      {u"cae", &AccionesGuion::caeVuelve},     {u"vuelve", &AccionesGuion::caeVuelve},
      {u"falla", &AccionesGuion::falla},       {u"mata", &AccionesGuion::mata},
      {u"revisa", &AccionesGuion::revisa},
  };
  // clang-format on
  for (const auto& m : kMetodos)
    if (a.verbo == m.verbo) return (this->*m.metodo)(a);
  throw ErrorGuion{QStringLiteral("no existe la acción «%1»").arg(a.verbo)};
}

std::deque<PasoGuion> AccionesGuion::reloj(const Accion& a) {
  const QString texto = a.arg(0) + u' ' + a.arg(1);
  const auto momento = LeerFecha(texto);
  if (!momento || FormatearFecha(*momento, u"dd/mm/yyyy hh:nn:ss") != texto) {
    throw ErrorGuion{QStringLiteral("«%1» no es una fecha dd/mm/aaaa hh:mm:ss").arg(texto)};
  }
  return uno([this, momento] { e_.reloj.fijar(*momento); });
}

std::deque<PasoGuion> AccionesGuion::pasa(const Accion& a) {
  if (!EsNumerico(a.arg(0)) || Val(a.arg(0)) < 0) {
    throw ErrorGuion{QStringLiteral("«%1» no es un número de segundos").arg(a.arg(0))};
  }
  const qint64 ms = AEntero(Val(a.arg(0)) * 1000);
  return uno([this, ms] { e_.reloj.pasar(ms); });
}

std::deque<PasoGuion> AccionesGuion::inicia(const Accion&) {
  if (e_.programa) throw ErrorGuion{QStringLiteral("el programa ya está en marcha")};
  return uno([this] {
    e_.programa = e_.crear();
    e_.programa->iniciar();
  });
}

std::deque<PasoGuion> AccionesGuion::termina(const Accion&) {
  if (!e_.programa) throw ErrorGuion{QStringLiteral("el programa no está en marcha")};
  return cierre();
}

// Routines that wait in a modal screen go on when it closes, and may open the next one; nothing they do then may reach
// a database or a port, as if the process had ended.
std::deque<PasoGuion> AccionesGuion::cierre() {
  return {[this] {
            e_.fallas.apagar(true);
            e_.persona.callar(true);
            e_.programa->cerrar();
            return true;
          },
          [this] {
            if (QThread::currentThread()->loopLevel() > 1) {
              e_.programa->cerrar();
              return false;
            }
            e_.programa.reset();
            e_.persona.callar(false);
            e_.fallas.apagar(false);
            return true;
          }};
}

std::deque<PasoGuion> AccionesGuion::espera(const Accion& a) {
  return {[this, pantalla = a.arg(0), plazo = QDeadlineTimer(kEspera_ms)] {
    if (e_.pantallas.nombreActiva().compare(pantalla, Qt::CaseInsensitive) == 0) return true;
    if (plazo.hasExpired()) {
      const QString activa = e_.pantallas.nombreActiva();
      throw ErrorGuion{activa.isEmpty() ? QStringLiteral("no apareció %1: no hay ninguna pantalla").arg(pantalla)
                                        : QStringLiteral("no apareció %1: está %2").arg(pantalla, activa)};
    }
    return false;
  }};
}

void AccionesGuion::anadirTecla(std::deque<PasoGuion>& pasos, const TeclaGuion& t, std::optional<int> ms) {
  pasos.push_back([this, t, tras = ms ? ms : ritmo_ms_] {
    QWidget* destino = e_.pantallas.destinoDeTeclas();
    if (!destino) throw ErrorGuion{QStringLiteral("no hay ninguna pantalla; falta «inicia»")};
    if (tras) momento_ms_ += static_cast<quint64>(*tras);
    pulsarTecla(destino, t, tras ? momento_ms_ : 0);
    return true;
  });
}

void AccionesGuion::anadirTexto(std::deque<PasoGuion>& pasos, QString texto) {
  while (!texto.isEmpty()) anadirTecla(pasos, tomarCaracter(texto));
}

std::deque<PasoGuion> AccionesGuion::escribe(const Accion& a) {
  std::deque<PasoGuion> pasos = uno([this, control = a.arg(0)] {
    PantallasGuion::cerrarDesplegables();
    const ControlGuion c = e_.pantallas.buscar(control);
    c.exigirUsable();
    darFocoParaEscribir(c);
  });
  // Deleting is a key of its own only where nothing is typed over the selection.
  if (a.arg(1).isEmpty()) anadirTecla(pasos, *leerTecla(QStringLiteral("Delete")));
  anadirTexto(pasos, a.arg(1));
  return pasos;
}

std::deque<PasoGuion> AccionesGuion::tecla(const Accion& a) {
  const auto t = leerTecla(a.arg(0));
  if (!t) throw ErrorGuion{QStringLiteral("«%1» no es una tecla").arg(a.arg(0))};
  const int veces = a.argumentos.size() > 1 ? a.entero(1, 1) : 1;
  std::deque<PasoGuion> pasos;
  for (int i = 0; i < veces; ++i) anadirTecla(pasos, *t);
  return pasos;
}

std::deque<PasoGuion> AccionesGuion::ritmo(const Accion& a) {
  ritmo_ms_ = a.entero(0, 0);
  return {};
}

std::deque<PasoGuion> AccionesGuion::escanea(const Accion& a) {
  std::deque<PasoGuion> pasos;
  int tras = kPausaEscaner_ms;
  for (QString texto = a.arg(0); !texto.isEmpty(); tras = kEscaner_ms) anadirTecla(pasos, tomarCaracter(texto), tras);
  anadirTecla(pasos, *leerTecla(QStringLiteral("Return")), kEscaner_ms);
  return pasos;
}

std::deque<PasoGuion> AccionesGuion::clic(const Accion& a) {
  return uno([this, control = a.arg(0)] {
    PantallasGuion::cerrarDesplegables();
    const ControlGuion c = e_.pantallas.buscar(control);
    c.exigirUsable();
    pulsarControl(c);
  });
}

std::deque<PasoGuion> AccionesGuion::fila(const Accion& a) {
  const int fila = a.entero(1, 1);
  return uno([this, control = a.arg(0), fila, doble = a.verbo == u"dobleclic"] {
    PantallasGuion::cerrarDesplegables();
    const ControlGuion c = e_.pantallas.buscar(control);
    QAbstractItemView* lista = c.lista();
    c.exigirUsable();
    pulsarFila(*lista, c.nombre, fila, doble);
  });
}

std::deque<PasoGuion> AccionesGuion::elige(const Accion& a) {
  return uno([this, control = a.arg(0), texto = a.arg(1)] {
    PantallasGuion::cerrarDesplegables();
    const ControlGuion c = e_.pantallas.buscar(control);
    c.exigirUsable();
    elegirEntrada(c, texto);
  });
}

std::deque<PasoGuion> AccionesGuion::celda(const Accion& a) {
  const int fila = a.entero(1, 1), columna = a.entero(2, 0);
  const QString texto = a.arg(3);
  std::deque<PasoGuion> pasos = uno([this, control = a.arg(0), fila, columna, vaciar = texto.isEmpty()] {
    PantallasGuion::cerrarDesplegables();
    const ControlGuion c = e_.pantallas.buscar(control);
    QAbstractItemView* rejilla = c.lista();
    c.exigirUsable();
    irACelda(*rejilla, c.nombre, fila, columna, vaciar);
  });
  anadirTexto(pasos, texto);
  anadirTecla(pasos, *leerTecla(QStringLiteral("Return")));
  return pasos;
}

std::deque<PasoGuion> AccionesGuion::marca(const Accion& a) {
  return uno([this, control = a.arg(0), si = siNo(a.arg(1))] {
    PantallasGuion::cerrarDesplegables();
    const ControlGuion c = e_.pantallas.buscar(control);
    c.exigirUsable();
    marcarControl(c, si);
  });
}

std::deque<PasoGuion> AccionesGuion::responde(const Accion& a) {
  const auto texto = a.argumentos.size() > 1 ? std::optional<QString>(a.arg(1)) : std::nullopt;
  if (!e_.persona.encolar(a.arg(0), texto)) {
    throw ErrorGuion{QStringLiteral("«%1» no es Sí, No, Aceptar ni Cancelar").arg(a.arg(0))};
  }
  return {};
}

std::deque<PasoGuion> AccionesGuion::lee(const Accion& a) {
  return uno([this, control = a.arg(0)] {
    const QStringList filas = e_.pantallas.buscar(control).texto();
    e_.escritor.linea(control + u'=' + filas.value(0));
    for (const QString& f : filas.mid(1)) e_.escritor.linea(f);
  });
}

std::deque<PasoGuion> AccionesGuion::foco(const Accion&) {
  return uno([this] { e_.escritor.linea(QStringLiteral("foco=") + e_.pantallas.foco()); });
}

std::deque<PasoGuion> AccionesGuion::estado(const Accion& a) {
  return uno([this, control = a.arg(0)] {
    const ControlGuion c = e_.pantallas.buscar(control);
    e_.escritor.linea(QStringLiteral("%1: %2 %3 %4")
                          .arg(control, c.visible() ? QStringLiteral("visible") : QStringLiteral("oculto"),
                               c.activo() ? QStringLiteral("activo") : QStringLiteral("inactivo"),
                               c.editable() ? QStringLiteral("editable") : QStringLiteral("fijo")));
  });
}

std::deque<PasoGuion> AccionesGuion::captura(const Accion& a) {
  const QString nombre = a.arg(0);
  if (nombre.contains(u'/') || nombre.contains(u'\\') || nombre.startsWith(u'.')) {
    throw ErrorGuion{QStringLiteral("«%1» no sirve como nombre de archivo").arg(nombre)};
  }
  if (a.argumentos.size() == 1) return uno([this, nombre] { fotografiar(nombre); });
  return uno([this, nombre, pantalla = a.arg(1)] {
    // The last picture stays: what the screen had come to when it went.
    vigia_ = RelojSistema().cada(1, [this, nombre, pantalla, vista = false]() mutable {
      const bool esta = e_.pantallas.nombreActiva().compare(pantalla, Qt::CaseInsensitive) == 0;
      if (!esta && vista) return vigia_.reset();
      if (!esta) return;
      try {
        fotografiar(nombre);
        if (!vista) revisarPantalla();
      } catch (const ErrorGuion& e) {
        e_.escritor.linea(QStringLiteral("falta|") + pantalla + u'|' + e.texto);
      }
      vista = true;
    });
  });
}

void AccionesGuion::fotografiar(const QString& nombre) {
  QWidget* pantalla = e_.pantallas.activa();
  if (!pantalla) throw ErrorGuion{QStringLiteral("no hay ninguna pantalla; falta «inicia»")};
  const QString archivo = e_.carpetaCapturas + u'/' + nombre + QStringLiteral(".png");
  QPixmap foto = pantalla->grab();
  if (QWidget* menu = QApplication::activePopupWidget()) {  // an open menu or list is a window of its own
    QPainter(&foto).drawPixmap(pantalla->mapFromGlobal(menu->mapToGlobal(QPoint())), menu->grab());
  }
  if (!QDir().mkpath(e_.carpetaCapturas) || !foto.save(archivo, "PNG")) {
    throw ErrorGuion{QStringLiteral("no se pudo escribir %1").arg(archivo)};
  }
}

std::deque<PasoGuion> AccionesGuion::revisa(const Accion&) {
  return uno([this] { revisarPantalla(); });
}

void AccionesGuion::revisarPantalla() {
  const QWidget* pantalla = e_.pantallas.activa();
  if (!pantalla) throw ErrorGuion{QStringLiteral("no hay ninguna pantalla; falta «inicia»")};
  for (const QString& f : faltasDePantalla(*pantalla)) {
    e_.escritor.linea(QStringLiteral("falta|") + pantalla->objectName() + u'|' + f);
  }
}

std::deque<PasoGuion> AccionesGuion::caeVuelve(const Accion& a) {
  const bool cae = a.verbo == u"cae";
  const QString que = a.arg(0), puerto = a.arg(1);
  if (que == u"puerto" && !puerto.isEmpty()) {
    e_.fallas.caerPuerto(puerto, cae);
  } else if (que == u"central" && puerto.isEmpty()) {
    e_.fallas.caer(Fallas::Servidor::Central, cae);
  } else if (que == u"cliente" && puerto.isEmpty()) {
    e_.fallas.caer(Fallas::Servidor::Cliente, cae);
  } else {
    throw ErrorGuion{QStringLiteral("se escribe central, cliente o puerto NOMBRE")};
  }
  return {};
}

std::deque<PasoGuion> AccionesGuion::falla(const Accion& a) {
  const bool desde = a.arg(0) == u"desde";
  if (desde != (a.argumentos.size() == 2)) throw ErrorGuion{QStringLiteral("se escribe N o desde N")};
  const int n = a.entero(desde ? 1 : 0, 0);
  e_.fallas.fallar(n, desde ? Fallas::Alcance::DesdeAhi : Fallas::Alcance::UnaVez);
  return {};
}

std::deque<PasoGuion> AccionesGuion::mata(const Accion& a) {
  const bool antes = a.arg(0) == u"antes";
  if (!antes && a.arg(0) != u"despues" && a.arg(0) != u"después") {
    throw ErrorGuion{QStringLiteral("se escribe antes o despues, no «%1»").arg(a.arg(0))};
  }
  e_.fallas.matar(a.entero(1, 0), antes ? Fallas::Momento::Antes : Fallas::Momento::Despues);
  return {};
}
