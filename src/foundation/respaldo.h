#pragma once
// Dated copies of the whole desk: store, settings, papers, logs, and the embedded servers that lie in its folder.
//
// A copy is a folder "yyyymmdd-hhmmss-why" that has its name only once it is whole and on the disk. It stands in
// respaldos/ of the desk and, when section [RESPALDO] of KEB.cfg names another folder (Carpeta=), in caja-CODE/ there
// too. Papers that have not changed since the copy before are one file with it.
#include <QDateTime>
#include <QStringList>
#include <optional>

#include "foundation/rutas.h"

struct Puesto;

enum class MotivoRespaldo { Apertura, Cierre, Pedido };

constexpr int kCopiasGuardadas = 30;          // the last ones; older copies go once a newer one stands
constexpr int kCopiasIntocables = 3;          // never taken away to make room
constexpr qint64 kReservaDisco = 20'000'000;  // bytes that a copy must leave free, for sales

struct ResultadoRespaldo {
  QStringList copias;  // paths of the copies made
  QStringList fallos;  // words for those that could not be made; what stood before is still there
};

// Copies the desk, also beside a running till.
[[nodiscard]] ResultadoRespaldo CopiarPuesto(const Rutas& rutas, const QDateTime& ahora, MotivoRespaldo motivo);

// The same for the session. Shows no box: what fails is logged and said in p.ses.avisoRespaldo until a copy succeeds.
void RespaldarSesion(Puesto& p, MotivoRespaldo motivo);

// The copies in such a folder, the newest first, by name.
QStringList CopiasEn(const QString& carpeta);

// The name that a copy begins with tells when it was made; nothing for a folder that is no copy.
std::optional<QDateTime> MomentoDeCopia(const QString& nombre);
