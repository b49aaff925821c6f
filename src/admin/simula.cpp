#include "admin/simula.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include "admin/argumentos.h"
#include "admin/ordenes.h"
#include "admin/simula_caja.h"
#include "admin/simula_envio.h"
#include "admin/simula_tienda.h"

namespace {

const QString kPuestos = QStringLiteral("--puestos"), kDias = QStringLiteral("--dias"),
              kSemilla = QStringLiteral("--semilla"), kDir = QStringLiteral("--dir"),
              kServidor = QStringLiteral("--servidor"), kFallas = QStringLiteral("--fallas"),
              kOperaciones = QStringLiteral("--operaciones"), kCaja = QStringLiteral("--caja"),
              kDia = QStringLiteral("--dia"), kEnvio = QStringLiteral("--envio"), kUltima = QStringLiteral("--ultima");

int malUso(const QString& palabras) {
  Quejarse(palabras + QStringLiteral(" Use «tarvopos-admin ayuda»."));
  return kMalUso;
}

// A whole number of at least 1; `porDefecto` without the option, 0 for anything else.
int cifra(const Argumentos& a, const QString& opcion, int porDefecto) {
  return a.tiene(opcion) ? std::max(0, a.opciones[opcion].toInt()) : porDefecto;
}

std::optional<QString> planDe(const Argumentos& a, PlanSimulacion& plan) {
  plan.puestos = cifra(a, kPuestos, plan.puestos);
  plan.dias = cifra(a, kDias, plan.dias);
  plan.operaciones = cifra(a, kOperaciones, plan.operaciones);
  bool esNumero = true;
  if (a.tiene(kSemilla)) plan.semilla = a.opciones[kSemilla].toULongLong(&esNumero);
  if (!esNumero || plan.puestos < 1 || plan.puestos > 200 || plan.dias < 1 || plan.dias > 200 || plan.operaciones < 5 ||
      plan.operaciones > 40) {
    return QStringLiteral("Son de 1 a 200 puestos, de 1 a 200 días, de 5 a 40 operaciones y una semilla entera.");
  }
  plan.fallas = kFallasSimuladas;
  if (a.tiene(kFallas)) {
    plan.fallas = a.opciones[kFallas].split(u',', Qt::SkipEmptyParts);
    for (const QString& f : plan.fallas) {
      if (f != u"ninguna" && !kFallasSimuladas.contains(f)) {
        return QStringLiteral("--fallas lleva ninguna o, separadas por comas: ") + kFallasSimuladas.join(u',');
      }
    }
  }
  plan.servidor = a.valor(kServidor, {});
  plan.central = QStringLiteral("simula%1_central").arg(plan.semilla);
  plan.cliente = QStringLiteral("simula%1_cliente").arg(plan.semilla);
  return {};
}

// One desk, one day: what the simulation runs for each of them.
int unaCaja(const PlanSimulacion& plan, const Argumentos& a) {
  const int caja = cifra(a, kCaja, 0), dia = cifra(a, kDia, 0);
  if (caja < 1 || caja > plan.puestos || dia < 1) return malUso(QStringLiteral("No hay tal caja o día."));
  if (a.tiene(kEnvio)) return EnviarALaVez(plan, caja);
  CajaSimulada c(plan, caja);
  return a.tiene(kUltima) ? c.sincronizarTodo(dia) : c.jugar(dia);
}

// Desks that push at once, instead of days.
int medir(const PlanSimulacion& plan, int filas) {
  TiendaSimulada tienda(plan);
  tienda.conDisco = true;
  int hechos = 0;
  if (const auto e = tienda.preparar(hechos)) {
    Quejarse(*e);
    return kFallo;
  }
  QStringList dicho;
  const bool bien = MedirEnvio(tienda, filas, dicho);
  for (const QString& d : dicho) Decir(d);
  return bien ? kBien : kFallo;
}

int correr(const PlanSimulacion& plan) {
  TiendaSimulada tienda(plan);
  int hechos = 0;
  if (const auto e = tienda.preparar(hechos)) {
    Quejarse(*e);
    return kFallo;
  }
  Decir(QStringLiteral("%1 cajas, %2 días, semilla %3, en %4")
            .arg(plan.puestos)
            .arg(plan.dias)
            .arg(plan.semilla)
            .arg(plan.carpeta));
  QElapsedTimer reloj;
  reloj.start();
  for (int dia = hechos + 1; dia <= plan.dias; ++dia) {
    if (const auto e = tienda.jugar(dia)) {
      Quejarse(*e);
      return kFallo;
    }
    if (dia == plan.dias || dia % 5 == 0) {
      Decir(QStringLiteral("día %1 de %2, %3 s").arg(dia).arg(plan.dias).arg(reloj.elapsed() / 1000));
    }
  }
  ResultadoCotejo r;
  if (const auto e = tienda.terminar(r)) {
    Quejarse(*e);
    return kFallo;
  }
  for (const QString& l : r.lineas) Decir(l);
  Decir(r.diferencias == 0 ? QStringLiteral("Sin diferencias.") : QStringLiteral("%1 diferencias.").arg(r.diferencias));
  return r.diferencias == 0 ? kBien : kFallo;
}

}  // namespace

int ordenSimular(const QStringList& palabras) {
  Argumentos a;
  const FormaOrden forma{
      0, 0, {kPuestos, kDias, kSemilla, kDir, kServidor, kFallas, kOperaciones, kCaja, kDia, kEnvio}, {kUltima}};
  if (const auto error = LeerArgumentos(palabras, forma, a)) return malUso(*error);
  const QString carpeta = a.tiene(kDir) ? QDir(a.opciones[kDir]).absolutePath() : QString();
  const auto anterior = carpeta.isEmpty() ? std::nullopt : LeerPlan(carpeta);
  if (a.tiene(kCaja)) {
    return anterior ? unaCaja(*anterior, a) : malUso(QStringLiteral("En esa carpeta no hay ninguna simulación."));
  }
  PlanSimulacion plan;
  if (const auto error = planDe(a, plan)) return malUso(*error);
  const int filas = cifra(a, kEnvio, 0);
  if (a.tiene(kEnvio) && (filas < 1 || anterior))
    return malUso(QStringLiteral("--envio lleva las filas de cada caja."));
  if (anterior) return correr(*anterior);
  const auto hacer = [&] { return filas > 0 ? medir(plan, filas) : correr(plan); };
  if (!carpeta.isEmpty()) {
    if (!QDir().mkpath(carpeta) || !QDir(carpeta).isEmpty()) {
      Quejarse(QStringLiteral("La carpeta %1 no está vacía o no se puede crear.").arg(carpeta));
      return kFallo;
    }
    plan.carpeta = carpeta;
    return hacer();
  }
  QTemporaryDir propia;
  // The server may run as another user.
  QFile::setPermissions(propia.path(), QFile::permissions(propia.path()) | QFile::ReadOther | QFile::ExeOther |
                                           QFile::ReadGroup | QFile::ExeGroup);
  plan.carpeta = propia.path();
  const int estado = hacer();
  propia.setAutoRemove(estado == kBien);
  return estado;
}
