#pragma once
// A shop's day out of one number: two desks, what their cashiers do, what breaks meanwhile, and the book beside it.
#include <functional>
#include <set>
#include <stdexcept>

#include "admin/azar.h"
#include "caja.h"
#include "sale/caja_full.h"

class PantallasDelDia;

namespace jornada {

// The program and the book disagree; the day ends there.
struct Desacuerdo : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// What a document must leave.
struct Esperado {
  QString doc, serie;  // of the counter: boletas and facturas under "02"
  int numero = 0;
  std::vector<Fila> filas;
  std::optional<Paralela> paralela;
  std::vector<int> liquidadas;  // the documents that it settles, in their order
  Centimos puntuable = 0;       // the amount that earns points, 0 without a card that does
};

class Jornada {
 public:
  explicit Jornada(quint64 semilla);

  // Plays the whole day. Gives "" or what did not agree; `diario` then tells the acts up to there.
  QString correr();
  QStringList diario;

 private:
  // What happened to an act.
  struct Suerte {
    bool fallo = false;  // a statement was made to fail
    bool murio = false;
    bool limpia() const { return !fallo && !murio; }
  };
  // Runs `acto` with a fault now and then, and starts a desk that died in it again.
  Suerte hacer(Caja& c, const QString& nombre, const std::function<void()>& acto, bool conAverias = true);
  Suerte tocar(Caja& c, const std::function<void()>& acto);
  void levantar(Caja& c);
  void averiar(Caja& c);
  void ponerServidor(Fallas::Servidor cual, bool caido);
  void exigir(bool cierto, const QString& texto);
  void igual(const QString& que, const QString& esperado, const QString& hay);
  void igual(const QString& que, const QStringList& esperado, const QStringList& hay);

  // actos_venta.cpp
  void venta(Caja& c);
  void rapida(Caja& c);
  void orden(Caja& c);
  void adelanto(Caja& c);
  void nota(Caja& c);
  void liquidacion(Caja& c);
  CajaRegistradoraFull& pantalla(Caja& c);
  std::vector<Renglon> teclear(Caja& c, CajaRegistradoraFull& v, bool conDescuento);
  QString cliente(Caja& c, CajaRegistradoraFull& v, PantallasDelDia& otras);
  Dinero cobrar(Caja& c, CajaRegistradoraFull& v, Centimos total);
  void documentoDeLiquidacion(Caja& c, int codigo, const std::vector<Renglon>& lineas, bool conTarjeta);
  Centimos cambio() const;
  void emitir(Caja& c, const QString& nombre, Esperado e, const std::function<void()>& acto);
  Fila filaBase(const Caja& c, const Esperado& e, int tipo, const QString& doc, const QString& tarjeta) const;
  std::vector<Fila> filasDeVenta(const Caja& c, const Esperado& e, int tipo, const QString& doc, const QString& tarjeta,
                                 const std::vector<Renglon>& lineas) const;

  // actos_dia.cpp
  void abrir(Caja& c);
  void anular(Caja& c);
  void reimprimir(Caja& c);
  void retirar(Caja& c);
  void reporteX(Caja& c);
  void cambiarTurno(Caja& c);
  void servidores(Caja& c);
  void latido(Caja& c);
  void reiniciar(Caja& c);
  void cerrar(Caja& c);
  void asentarAnulacion(Caja& c, int codigo, bool paralela, int nuevo);

  // cotejo.cpp
  void asentar(Caja& c, const Esperado& e, const Suerte& s, qsizetype papelAntes, qint64 puntosAntes);
  void asentarFilas(Caja& c, const Esperado& e, bool limpia);
  void asentarParalelas(Caja& c, const Esperado& e, bool limpia);
  void asentarMarcas(Caja& c, int tipo, int cuantas, bool limpia);
  void cotejar(Caja& c);
  void cotejarCuadre(Caja& c);
  void cotejarReporte(Caja& c, const QString& papel, const QString& letra, const Cifras& k);
  void cotejarCierre(Caja& c, bool sinDetalle);
  void cotejarCentral(Caja& c);
  void cotejarEnvio(Caja& c);
  qint64 puntos();
  qsizetype largoDelPapel(Caja& c) const;
  QByteArray papelDesde(Caja& c, qsizetype antes) const;

  const quint64 semilla_;
  Azar azar_;
  Tienda tienda_;
  Caja cajas_[2];
  std::optional<CajaRegistradoraFull> pantallas_[2];
  bool clienteCaido_ = false, centralCaida_ = false;
  // Documents whose points a void may leave where they are: cut off, so that nobody knows whether they came, or sold
  // without the card's site, since its database was away.
  std::set<QString> sinPuntos_;
  int acto_ = 0;
};

}  // namespace jornada
