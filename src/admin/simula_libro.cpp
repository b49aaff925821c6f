#include "admin/simula_libro.h"

#include <QFile>

#include "platform/io/archivo.h"
#include "platform/io/perfil.h"

const QStringList kFallasSimuladas{QStringLiteral("matar"), QStringLiteral("cortar"), QStringLiteral("servidor"),
                                   QStringLiteral("restaurar"), QStringLiteral("maestros")};

namespace {

const QString kSeccion = QStringLiteral("SIMULACION");
const QDate kPrimerDia(2026, 11, 24);
constexpr QChar kTab = u'\t';

QString n(qint64 cifra) { return QString::number(cifra); }
QString archivoDePlan(const QString& carpeta) { return carpeta + QStringLiteral("/simulacion.cfg"); }

void agregar(const QString& archivo, const QByteArray& bytes) {
  QFile f(archivo);
  if (!f.open(QIODevice::Append) || f.write(bytes) != bytes.size()) {
    qFatal("%s: %s", qPrintable(archivo), qPrintable(f.errorString()));
  }
}

QStringList lineasDe(const QString& archivo) {
  QFile f(archivo);
  if (!f.open(QIODevice::ReadOnly)) return {};
  return QString::fromUtf8(f.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

}  // namespace

QDate DiaSimulado(int dia) { return kPrimerDia.addDays(dia - 1); }

quint64 SemillaDe(const PlanSimulacion& plan, int caja, int dia, int acto, int cosa) {
  quint64 s = plan.semilla;
  for (const int x : {caja, dia, acto, cosa}) s = s * 0x100000001B3u + static_cast<quint64>(x) + 1;
  return s;
}

QString BaseDeSimulacion(const PlanSimulacion& plan, bool central) {
  return plan.servidor + u'/' + (central ? plan.central : plan.cliente);
}

std::optional<QString> GuardarPlan(const PlanSimulacion& plan) {
  const std::pair<const char*, QString> claves[] = {{"Puestos", n(plan.puestos)},
                                                    {"Dias", n(plan.dias)},
                                                    {"Operaciones", n(plan.operaciones)},
                                                    {"Semilla", QString::number(plan.semilla)},
                                                    {"Fallas", plan.fallas.join(u',')},
                                                    {"Servidor", plan.servidor},
                                                    {"Central", plan.central},
                                                    {"Cliente", plan.cliente},
                                                    {"PuertoLocal", n(plan.puertoLocal)}};
  for (const auto& [clave, valor] : claves) {
    if (auto e = EscribirPerfil(archivoDePlan(plan.carpeta), kSeccion, QLatin1String(clave), valor)) return e;
  }
  return {};
}

std::optional<PlanSimulacion> LeerPlan(const QString& carpeta) {
  if (!QFile::exists(archivoDePlan(carpeta))) return {};
  const auto valor = [&](const char* clave) {
    return LeerPerfil(archivoDePlan(carpeta), kSeccion, QLatin1String(clave)).value_or(QString());
  };
  PlanSimulacion p;
  p.carpeta = carpeta;
  p.puestos = valor("Puestos").toInt();
  p.dias = valor("Dias").toInt();
  p.operaciones = valor("Operaciones").toInt();
  p.semilla = valor("Semilla").toULongLong();
  p.fallas = valor("Fallas").split(u',', Qt::SkipEmptyParts);
  p.servidor = valor("Servidor");
  p.central = valor("Central");
  p.cliente = valor("Cliente");
  p.puertoLocal = valor("PuertoLocal").toInt();
  return p;
}

void LibroCaja::anotar(const QStringList& celdas) {
  agregar(archivo_, celdas.join(kTab).toUtf8() + '\n');
  tomar(celdas);
}

// One event.
void LibroCaja::tomar(const QStringList& c) {
  const auto cifra = [&c](qsizetype i) { return c.value(i).toLongLong(); };
  const auto entero = [&c](qsizetype i) { return c.value(i).toInt(); };
  const QString que = c.value(0);
  if (que == u"intento") {
    abierto = Intento{entero(1), entero(2), c.value(3), cifra(4), cifra(5), entero(6), cifra(7), cifra(8)};
    vistos[abierto->dia] = abierto->acto;
  } else if (que == u"asiento") {
    asientos.push_back({.dia = entero(1),
                        .acto = entero(2),
                        .tipo = c.value(3),
                        .serie = c.value(4),
                        .numero = cifra(5),
                        .codigo = cifra(6),
                        .total = cifra(7),
                        .puntos = cifra(8),
                        .unidades = entero(9),
                        .dudoso = entero(10) != 0,
                        .puntosDudosos = entero(11) != 0});
  } else if (que == u"fin") {
    const bool dejo =
        abierto && !asientos.empty() && asientos.back().dia == abierto->dia && asientos.back().acto == abierto->acto;
    if (abierto && abierto->total != 0 && !dejo) ++vacios;
    abierto.reset();
  } else if (que == u"anula") {
    for (Asiento& a : asientos) {
      if (a.perdido || a.dia != entero(1) || a.tipo != c.value(2) || a.serie != c.value(3) || a.numero != cifra(4)) {
        continue;
      }
      a.anulado = true;
      a.puntosDudosos = a.puntosDudosos || entero(5) != 0;
    }
  } else if (que == u"restaura") {
    ++restauraciones;
    for (Asiento& a : asientos) a.perdido = a.perdido || a.dia >= entero(1);
    for (int dia = entero(1); dia < entero(2); ++dia) diasPerdidos.insert(DiaSimulado(dia));
  } else if (que == u"cierra") {
    cierres[entero(1)] = cifra(2);
  } else if (que == u"averia") {
    veces.insert(c.value(1));
  } else if (que == u"diferencia") {
    diferencias << c.mid(1).join(kTab);
  }
}

bool LibroCaja::leer() {
  for (const QString& l : lineasDe(archivo_)) tomar(l.split(kTab));
  return true;
}

void LibroCaja::intentar(const Intento& i) {
  anotar({QStringLiteral("intento"), n(i.dia), n(i.acto), i.nombre, n(i.total), n(i.puntos), n(i.unidades), n(i.marca),
          n(i.marcaParalela)});
}

void LibroCaja::asentar(const Asiento& a) {
  anotar({QStringLiteral("asiento"), n(a.dia), n(a.acto), a.tipo, a.serie, n(a.numero), n(a.codigo), n(a.total),
          n(a.puntos), n(a.unidades), n(a.dudoso), n(a.puntosDudosos)});
}

void LibroCaja::terminar() { anotar({QStringLiteral("fin")}); }

void LibroCaja::anular(int dia, const QString& tipo, const QString& serie, qint64 numero, bool puntosDudosos) {
  anotar({QStringLiteral("anula"), n(dia), tipo, serie, n(numero), n(puntosDudosos)});
}

void LibroCaja::restaurar(int dia, int hoy) {
  agregar(archivo_ + QStringLiteral(".filas"), "restaura\t" + QByteArray::number(dia) + '\n');
  anotar({QStringLiteral("restaura"), n(dia), n(hoy)});
}

void LibroCaja::cerrar(int dia, qint64 z1) { anotar({QStringLiteral("cierra"), n(dia), n(z1)}); }
void LibroCaja::averia(const QString& clave) { anotar({QStringLiteral("averia"), clave}); }
void LibroCaja::diferencia(const QString& texto) { anotar({QStringLiteral("diferencia"), texto}); }

void LibroCaja::guardarFilas(int dia, const QStringList& filas) {
  QByteArray bytes = "otra vez\t" + QByteArray::number(dia) + '\n';
  for (const QString& f : filas) bytes += QByteArray::number(dia) + '\t' + f.toUtf8() + '\n';
  agregar(archivo_ + QStringLiteral(".filas"), bytes);
}

std::vector<std::pair<QString, bool>> LibroCaja::filas() const {
  std::vector<std::pair<QString, bool>> todas;
  std::vector<int> dias;
  for (const QString& l : lineasDe(archivo_ + QStringLiteral(".filas"))) {
    const QString cabeza = l.section(kTab, 0, 0), resto = l.section(kTab, 1);
    if (cabeza == u"restaura") {
      for (size_t i = 0; i < todas.size(); ++i) todas[i].second = todas[i].second || dias[i] >= resto.toInt();
    } else if (cabeza == u"otra vez") {
      while (!dias.empty() && dias.back() == resto.toInt() && !todas.back().second) {
        dias.pop_back();
        todas.pop_back();
      }
    } else {
      todas.emplace_back(resto, false);
      dias.push_back(cabeza.toInt());
    }
  }
  return todas;
}
