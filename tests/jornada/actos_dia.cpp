// What is done beside selling: the day's opening and closing, voids, reports, servers that go and come.
#include "admin/pantallas_mudas.h"
#include "cashday/apertura.h"
#include "cashday/cierre.h"
#include "cashday/reportes.h"
#include "cashday/turno.h"
#include "jornada.h"
#include "platform/text/texto.h"
#include "sale/retiro.h"
#include "voiding/anulacion.h"
#include "voiding/reimpresion.h"

namespace jornada {

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

}  // namespace

void Jornada::abrir(Caja& c) {
  if (!c.enMarcha()) levantar(c);
  pantallas_[c.numero - 1].reset();  // a register closes before the day does
  Libro& l = c.libro;
  l.aperturaSoles = azar_.entre(0, 30) * 1000;
  l.aperturaDolares = azar_.entre(0, 5) * 1000;
  const auto acto = [&] {
    FrmApertura v;
    v.txtimporsoles = QString::number(l.aperturaSoles / 100);
    v.TxtImporDolares = QString::number(l.aperturaDolares / 100);
    (void)AbrirCaja(c.p(), v);  // the store tells below whether it went
  };
  // An opening that died or failed is done again, as long as the desk is closed.
  hacer(c, q("abre"), acto);
  if (c.p().ses.psTurno.trimmed().isEmpty()) hacer(c, q("abre"), acto, false);
  l.turno = q("01");
  igual(q("turn"), q("01|%1|%2").arg(enSoles(l.aperturaSoles), enSoles(l.aperturaDolares)),
        c.valor(q("SELECT cCodiTurno, nImporApertSol, nImporApertDol FROM Configuracion")));
}

void Jornada::anular(Caja& c) {
  struct Anulable {
    int codigo;
    bool paralela;
  };
  std::vector<Anulable> hay;
  for (const Fila& f : c.libro.filas) {
    const bool otra = hay.empty() || hay.back().codigo != f.codigo;
    if (f.abierta && f.fiscal() && !f.anulada && f.linea.articulo != 0 && otra) hay.push_back({f.codigo, false});
  }
  for (const Paralela& p : c.libro.paralelas) {
    if (p.abierta && p.estado == 1 && p.tipo < 24) hay.push_back({p.codigo, true});
  }
  if (hay.empty()) return venta(c);
  const Anulable a = azar_.de(hay);
  const auto clave = [&](const Fila& f) {
    return q(" cDocTipo='%1' AND cDocSerie='%2' AND cDocCodigo=%3").arg(f.doc, f.serie).arg(f.numero);
  };
  // Points that are there to be taken back: those that wait, and those of a sale that were sent, while their database
  // is there.
  qint64 quita = 0;
  bool dudoso = false;
  for (const Fila& f : c.libro.filas) {
    if (a.paralela || f.codigo != a.codigo || !f.fiscal()) continue;
    const QString sql = q("SELECT IFNULL(SUM(nPuntCant),0) FROM Acumulacion_Punto WHERE ") + clave(f);
    quita = c.valor(sql + q(" AND cSincroFlag=0")).toLongLong();
    if (!clienteCaido_) quita += c.valor(sql, Caja::Base::Cliente).toLongLong();
    dudoso = sinPuntos_.contains(q("%1-%2").arg(f.serie).arg(f.numero));
    break;
  }
  if (a.paralela) {
    const Paralela& p = *c.libro.paralela(a.codigo);
    const QString sql = q("SELECT IFNULL(SUM(nPuntCant),0) FROM Acumulacion_Punto WHERE cSincroFlag=0 AND ");
    quita = c.valor(sql + q("cDocTipo='%1' AND cDocSerie='%2' AND cDocCodigo=%3").arg(p.doc, p.serie).arg(p.numero))
                .toLongLong();
    dudoso = sinPuntos_.contains(q("%1-%2").arg(p.serie).arg(p.numero));
  }
  const int nuevo = c.libro.siguienteCodigo(a.paralela);
  const qint64 antes = puntos();
  const auto acto = [&] {
    PantallaTransaccion v;
    AnulacionDelDia jefe;
    AbrirTransacciones(c.p(), v);
    if (a.paralela) CambiarAlterno(c.p(), v, true);
    v.txtTransaccion = QString::number(a.codigo);
    BuscarTransaccion(c.p(), v);
    if (v.cargada) Anular(c.p(), v, jefe);
  };
  const Suerte s = hacer(c, q("anula %1%2").arg(a.paralela ? q("paralela ") : QString()).arg(a.codigo), acto);
  if (!s.limpia()) hacer(c, q("la termina"), acto, false);
  asentarAnulacion(c, a.codigo, a.paralela, nuevo);
  const qint64 quitados = antes - puntos();
  exigir(quitados == quita || dudoso || (!s.limpia() && quitados == 0),
         q("points taken back: expected %1, were %2").arg(quita).arg(quitados));
}

void Jornada::asentarAnulacion(Caja& c, int codigo, bool paralela, int nuevo) {
  Libro& l = c.libro;
  const auto borrar = [&](int cual, const QStringList& docs) {
    std::erase_if(l.filas, [&](const Fila& f) { return f.codigo == cual && f.abierta && docs.contains(f.doc); });
  };
  if (paralela) {
    Paralela* p = l.paralela(codigo);
    p->estado = 0;
    p->anuladaPor = nuevo;
    Paralela v;
    v.codigo = nuevo;
    v.tipo = p->tipo;
    v.estado = 0;
    v.turno = l.turno;
    l.paralelas.push_back(v);
    borrar(codigo, {q("10"), q("14")});
  } else {
    int liquidacion = 0;
    std::vector<Fila> espejos;
    for (Fila& f : l.filas) {
      if (f.codigo != codigo || !f.fiscal()) continue;
      f.anulada = true;
      if (f.tipo == 3) liquidacion = f.anula;
      if (f.linea.articulo == 0) continue;
      Fila e;
      e.codigo = nuevo;
      e.tipo = f.tipo;
      e.linea = f.linea;
      e.linea.cantidad = -f.linea.cantidad;
      e.anula = codigo;
      e.anulada = true;
      e.turno = l.turno;
      espejos.push_back(e);
    }
    l.filas.insert(l.filas.end(), espejos.begin(), espejos.end());
    if (liquidacion != 0) {
      for (Paralela& p : l.paralelas) {
        if (p.tipo == 20 || p.relacion != liquidacion || p.estado != 2) continue;
        p.estado = 1;
        p.relacion = 0;
      }
      std::erase_if(l.paralelas, [&](const Paralela& p) { return p.codigo == liquidacion && p.abierta; });
      borrar(liquidacion, {q("14")});
    }
  }
  igual(q("rows"), l.textoFilas(), c.filas(QLatin1String(kConsultaFilas)));
  igual(q("documents"), l.textoParalelas(), c.filas(QLatin1String(kConsultaParalelas)));
}

void Jornada::reimprimir(Caja& c) {
  std::vector<Fila> ventas;
  for (const Fila& f : c.libro.filas) {
    if (f.fiscal()) ventas.push_back(f);
  }
  if (ventas.empty()) return;
  const Fila f = azar_.de(ventas);
  const qsizetype antes = largoDelPapel(c);
  const Suerte s = hacer(c, q("reimprime %1").arg(f.codigo), [&] {
    PantallaTransaccion v;
    v.uso = Uso::Reimprimir;
    AbrirTransacciones(c.p(), v);
    v.txtTransaccion = QString::number(f.codigo);
    BuscarTransaccion(c.p(), v);
    if (v.cargada) Reimprimir(c.p(), v);
  });
  const QByteArray numero = q("TICKET NRO: %1-%2").arg(f.serie).arg(f.numero, 6, 10, QChar(u'0')).toLatin1();
  exigir(!s.limpia() || papelDesde(c, antes).count(numero) == 1, q("the copy was not printed"));
  igual(q("rows"), c.libro.textoFilas(), c.filas(QLatin1String(kConsultaFilas)));
}

void Jornada::retirar(Caja& c) {
  const Centimos monto = azar_.entre(1, 30) * 500;
  Esperado e;
  Fila f = filaBase(c, e, 5, {}, {});
  f.linea.precio = monto;
  e.filas = {f};
  const qsizetype antes = largoDelPapel(c);
  const qint64 p = puntos();
  const Suerte s = hacer(c, q("retira %1").arg(monto), [&] { (void)Retirar(c.p(), MontoRetiro(enSoles(monto))); });
  asentar(c, e, s, antes, p);
}

void Jornada::reporteX(Caja& c) {
  const qsizetype antes = largoDelPapel(c);
  const Cifras k = cifrasDe(c.libro, c.libro.turno);
  bool hecho = false;
  const bool alterna = azar_.unoDe(3);
  const Suerte s = hacer(c, alterna ? q("X-1") : q("X"), [&] {
    PrincipalDelDia menu(c.p());
    PrepararOperacion(c.p(), c.ventana, menu);
    if (!AutorizarOperacion(c.ventana, menu, q("Reporte X"))) return;
    hecho = (alterna ? ReportesEspeciales1 : ReportesEspeciales)(c.p(), PedidoX()).hecho();
  });
  asentarMarcas(c, 10, 1, s.limpia());
  exigir(!s.limpia() || hecho, q("the report was refused"));
  if (hecho && !s.murio && !alterna) cotejarReporte(c, DeUnByte(papelDesde(c, antes)), q("X"), k);
}

void Jornada::cambiarTurno(Caja& c) {
  const QString viejo = c.libro.turno, nuevo = q("0%1").arg(viejo.toInt() + 1).right(2);
  bool rearranca = false;
  const Suerte s = hacer(c, q("cambia de turno"), [&] {
    PrincipalDelDia menu(c.p());
    PrepararOperacion(c.p(), c.ventana, menu);
    if (!AutorizarOperacion(c.ventana, menu, q("Cambio de turno"))) return;
    CambioTurno(c.p(), c.ventana, menu);
    rearranca = menu.rearranca;
  });
  asentarMarcas(c, 10, 1, s.limpia());
  if (rearranca && !s.murio) levantar(c);
  const QString turno = c.valor(q("SELECT cCodiTurno FROM Configuracion"));
  exigir(turno == nuevo || (!s.limpia() && turno == viejo), q("turn ") + turno);
  c.libro.turno = turno;
}

void Jornada::servidores(Caja&) {
  if (azar_.unoDe(2)) ponerServidor(Fallas::Servidor::Cliente, !clienteCaido_);
  else ponerServidor(Fallas::Servidor::Central, !centralCaida_);
}

void Jornada::latido(Caja& c) {
  const qint64 antes = puntos();
  const Suerte s = hacer(c, q("latido"), [&] { RevisarCliente(c.p()); });
  exigir(!s.limpia() || puntos() == antes, q("the queue lost or doubled points"));
}

void Jornada::reiniciar(Caja& c) {
  diario << q("caja %1 starts again").arg(c.numero);
  const qint64 antes = puntos();
  levantar(c);
  exigir(puntos() == antes, q("the start lost or doubled points"));
}

void Jornada::cerrar(Caja& c) {
  ponerServidor(Fallas::Servidor::Central, false);
  ponerServidor(Fallas::Servidor::Cliente, false);
  // What the closing asks for: an operation since the day began.
  while (cifrasDe(c.libro, {}).tickets == 0) venta(c);
  const auto paso = [&] { return c.valor(q("SELECT iCierreCaja FROM Configuracion")); };
  const auto abiertas = [&] { return c.valor(q("SELECT COUNT(*) FROM Operacion WHERE cOperFlagAbierto=1")); };
  const auto acto = [&] {
    PrincipalDelDia menu(c.p());
    PrepararOperacion(c.p(), c.ventana, menu);
    CerrarCaja(c.p(), c.ventana, menu, [](const QString&) {});
  };
  const bool averia = azar_.unoDe(2);
  // Told to the cashier, and the closing goes on without it.
  bool sinDetalle = false;
  const auto intentar = [&](const QString& nombre, bool conAveria) {
    const bool desdeElDetalle = QStringList{q("0"), q("1"), q("6")}.contains(paso());
    const auto todo = [&] {
      if (conAveria) averiar(c);
      acto();
    };
    hacer(c, nombre, todo, false);
    const auto dicho = [&](const char* que) { return !c.persona.cajas.filter(q(que)).isEmpty(); };
    if (desdeElDetalle) sinDetalle = dicho("no llegó a la base central") || dicho("SELECT o.cCajaCodi, Format");
  };
  intentar(q("cierra"), averia);
  for (int n = 0; n < 4 && abiertas() != u"0"; ++n) {
    diario << q("    stands at step ") + paso();
    intentar(q("termina el cierre"), false);
  }
  cotejarCierre(c, sinDetalle);
}

}  // namespace jornada
