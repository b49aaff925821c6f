#pragma once
// One desk's part of the proof.
#include <set>

#include "admin/simula_cotejo.h"

using Multiconjunto = std::map<QString, int>;

class CotejoDeCaja {
 public:
  CotejoDeCaja(const PlanSimulacion& plan, int n, Conexion& central, Conexion& cliente, ResultadoCotejo& r);
  void correr();

 private:
  void dif(const QString& texto);
  void difs(const QString& que, const QStringList& cuales);
  QList<QStringList> filas(Conexion& cnn, const Sql& sql);
  Multiconjunto leer(Conexion& cnn, std::initializer_list<std::pair<const QString*, Sql>> fuentes);
  void cotejarCentro();
  static int cuantas(const Multiconjunto& m, const QString& k);
  void cotejarTienda();
  static Sql consultaTienda(LiteralSql tabla);
  void cotejarSeries();

  // simula_cotejo_sumas.cpp
  void cotejarPuntos();
  Sql seriesSql() const;
  void cotejarCierres();
  void cotejarExistencias();
  void cotejarPapel();
  void cotejarPrecios();

  // simula_cotejo.cpp
  void comparar();
  void resumir();

  const PlanSimulacion& plan_;
  const int n_;
  const QString caja_;
  Conexion &central_, &cliente_;
  Conexion local_;
  ResultadoCotejo& r_;
  LibroCaja libro_;
  std::unique_ptr<Motores> motores_;
  Multiconjunto esperadas_, perdidas_, enCentro_;
  std::set<QString> diasPerdidos_;
};
