#include "jornada.h"

namespace jornada {

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

}  // namespace

Jornada::Jornada(quint64 semilla) : semilla_(semilla), azar_(semilla), cajas_{{tienda_, 1}, {tienda_, 2}} {
  for (Caja& c : cajas_) {
    c.papel.lista = {{q("Ticketera"), q("LPT1")}, {q("Alterna"), q("LPT2")}};
  }
}

void Jornada::exigir(bool cierto, const QString& texto) {
  if (!cierto) throw Desacuerdo(texto.toStdString());
}

void Jornada::igual(const QString& que, const QString& esperado, const QString& hay) {
  exigir(esperado == hay, que + q(": expected ") + esperado + q(", there is ") + hay);
}

void Jornada::igual(const QString& que, const QStringList& esperado, const QStringList& hay) {
  for (qsizetype i = 0; i < std::max(esperado.size(), hay.size()); ++i) {
    igual(que + u' ' + QString::number(i + 1), i < esperado.size() ? esperado[i] : q("nothing"),
          i < hay.size() ? hay[i] : q("nothing"));
  }
}

// A statement that fails, once or from there on, or a kill before or behind one.
void Jornada::averiar(Caja& c) {
  const int n = azar_.entre(1, 45);
  switch (azar_.entre(1, 5)) {
    case 1:
    case 2:
      c.fallas.fallar(n, Fallas::Alcance::UnaVez);
      diario << q("    statement %1 fails").arg(n);
      break;
    case 3:
      c.fallas.fallar(n, Fallas::Alcance::DesdeAhi);
      diario << q("    all fails from statement %1 on").arg(n);
      break;
    default: {
      const bool antes = azar_.unoDe(2);
      c.fallas.matar(n, antes ? Fallas::Momento::Antes : Fallas::Momento::Despues);
      diario << (antes ? q("    killed before %1") : q("    killed behind %1")).arg(n);
    }
  }
}

Jornada::Suerte Jornada::tocar(Caja& c, const std::function<void()>& acto) {
  Suerte s;
  try {
    acto();
  } catch (const ProgramaMuerto&) {
    s.murio = true;
  } catch (const ProcesoTerminado&) {
    s.murio = true;
  }
  s.fallo = c.fallas.fallidas() > 0;
  c.fallas.fallar(0, Fallas::Alcance::UnaVez);
  c.fallas.matar(0, Fallas::Momento::Antes);
  return s;
}

Jornada::Suerte Jornada::hacer(Caja& c, const QString& nombre, const std::function<void()>& acto, bool conAverias) {
  diario << q("%1. caja %2 %3 %4").arg(++acto_).arg(c.numero).arg(tienda_.reloj.ahora.toString(q("dd hh:mm")), nombre);
  if (conAverias && azar_.unoDe(5)) averiar(c);
  c.persona.cajas.clear();
  const Suerte s = tocar(c, acto);
  if (s.fallo) diario << q("    failed");
  if (s.murio) {
    diario << q("    died");
    levantar(c);
  }
  for (const QString& caja : c.persona.cajas)
    diario << q("    [") + QString(caja).replace(u'\n', u' ').left(150) + u']';
  return s;
}

void Jornada::levantar(Caja& c) {
  pantallas_[c.numero - 1].reset();
  c.apagar();
  ponerServidor(Fallas::Servidor::Central, false);  // without it no desk starts
  if (azar_.unoDe(8)) {
    averiar(c);
    (void)tocar(c, [&] { c.arrancar(); });
    c.apagar();
  }
  const Suerte s = tocar(c, [&] { c.arrancar(); });
  exigir(s.limpia(), q("the desk does not start: ") + c.persona.cajas.join(u'/'));
}

void Jornada::ponerServidor(Fallas::Servidor cual, bool caido) {
  const bool central = cual == Fallas::Servidor::Central;
  bool& estaba = central ? centralCaida_ : clienteCaido_;
  if (estaba == caido) return;
  estaba = caido;
  diario << q("%1 %2").arg(central ? q("central") : q("cliente"), caido ? q("away") : q("back"));
  for (Caja& c : cajas_) c.fallas.caer(cual, caido);
}

QString Jornada::correr() {
  using Acto = void (Jornada::*)(Caja&);
  const struct {
    Acto acto;
    int peso;
  } kActos[] = {{&Jornada::venta, 8},    {&Jornada::rapida, 5},       {&Jornada::orden, 3},
                {&Jornada::adelanto, 2}, {&Jornada::nota, 3},         {&Jornada::liquidacion, 3},
                {&Jornada::anular, 4},   {&Jornada::reimprimir, 1},   {&Jornada::retirar, 1},
                {&Jornada::reporteX, 2}, {&Jornada::cambiarTurno, 1}, {&Jornada::servidores, 2},
                {&Jornada::latido, 2},   {&Jornada::reiniciar, 1}};
  std::vector<Acto> bolsa;
  for (const auto& a : kActos) bolsa.insert(bolsa.end(), static_cast<size_t>(a.peso), a.acto);
  try {
    for (const int actos : {azar_.entre(25, 60), azar_.entre(2, 8)}) {
      for (Caja& c : cajas_) abrir(c);
      for (int n = 0; n < actos; ++n) {
        tienda_.reloj.ahora = tienda_.reloj.ahora.addSecs(60 * azar_.entre(1, 9));
        Caja& c = cajas_[azar_.entre(0, 1)];
        (this->*azar_.de(bolsa))(c);
        if (azar_.unoDe(12)) cotejar(c);
      }
      for (Caja& c : cajas_) {
        cotejar(c);
        cerrar(c);
      }
      // The morning after next, since the shop's list has no rate for the one between.
      tienda_.reloj.ahora = QDateTime(tienda_.reloj.ahora.date().addDays(2), QTime(8, 0));
    }
    for (Caja& c : cajas_) cotejarEnvio(c);
  } catch (const Desacuerdo& e) {
    return QString::fromStdString(e.what());
  }
  return {};
}

}  // namespace jornada
