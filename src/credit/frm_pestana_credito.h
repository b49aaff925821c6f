#pragma once
// What the tabs of the billing screen share.
#include <QComboBox>
#include <functional>

#include "credit/facturacion_pagos.h"
#include "platform/ui/campo.h"
#include "platform/ui/rejilla.h"

struct ContextoCredito {
  Puesto& p;
  PantallasCredito& pantallas;
  CajaFacturacionPagos& v;
  Enlaces& enlaces;
  // Runs an action on the struct between the controls' texts in and out.
  std::function<void(const std::function<void()>&)> con;
  // Gives the keyboard to the control of that name on the tab in front; "" leaves it.
  std::function<void(const QString&)> enfocar;
};

// A list whose chosen entry is an index of the struct.
class ListaCredito {
 public:
  // `alCambiar` runs on the struct once the cashier has chosen.
  ListaCredito(const ContextoCredito& c, const QString& nombre, int& indice, std::function<void()> alCambiar = {});

  QComboBox* control() const { return lista_; }
  void mostrar(const QStringList& entradas);

 private:
  QComboBox* lista_;
  int& indice_;
};

QStringList TextosDe(const std::vector<Referencia>& lista);
inline const QStringList kTiposCredito{QStringLiteral("FADE"), QStringLiteral("BADE")};
inline const QStringList kMonedas{QStringLiteral("SOLES"), QStringLiteral("DOLARES")};

// A text behind its caption that takes the room there is: a long name must not widen the screen.
void agregarRotulo(Panel* panel, const QString& nombre, const QString& etiqueta, Enlaces& enlaces,
                   const QString& texto);

// A row over the whole width of a card, with texts of that kind: {name, caption, text}. The last one takes the rest.
struct TextoDeFila {
  const char* nombre;
  const char16_t* etiqueta;
  const QString& texto;
};
void agregarFilaDeTextos(Panel* panel, Enlaces& enlaces, std::initializer_list<TextoDeFila> textos);

// A card with less room around than a panel takes by itself: four of them stand on a tab.
Panel* nuevoPanelCredito(const QString& titulo, int pares);
Campo* campoImporte(Panel* panel, const QString& nombre, const QString& etiqueta, Enlaces& enlaces, QString& texto);

// The dark display of a total: soles large, dollars beside them.
QFrame* nuevaPantallaTotal(Enlaces& enlaces, const QString& nombreSoles, const QString& soles,
                           const QString& nombreDolares, const QString& dolares);

// A lines grid with its two buttons.
class DetalleLineas final : public QWidget {
 public:
  // `sufijo` tells its buttons from those of another tab; `alCambiar` takes the totals.
  DetalleLineas(const ContextoCredito& c, const QString& nombre, const QString& sufijo, RejillaLineas& l,
                std::function<void()> alCambiar);

  void mostrar();
  bool agregarFila();
  void eliminarFila();
  // Opens the article search for that row, or for a new one.
  void buscarArticulo(int fila = -1);
  // To the first cell of the last row.
  void irAlFinal(int columna = 1);
  bool dejarCelda() { return rejilla_->dejarCelda(); }
  void abandonarCelda() { rejilla_->abandonarCelda(); }
  Rejilla* rejilla() { return rejilla_; }
  // "Adicionar" and "Eliminar", for the tab to place.
  QHBoxLayout* nuevosBotones();

 private:
  bool salirCelda(int fila, int columna, QString& texto);

  ContextoCredito c_;
  RejillaLineas& l_;
  QString sufijo_;
  std::function<void()> alCambiar_;
  Rejilla* rejilla_;
};

// One tab. Its actions do nothing where the tab has no such thing.
class PestanaCredito : public QWidget {
 public:
  explicit PestanaCredito(const ContextoCredito& c) : c_(c) {}

  virtual void mostrar() = 0;
  virtual QString primerControl() const = 0;
  virtual void grabar() = 0;
  virtual void buscarDocumento() {}
  virtual void anular() {}
  virtual void reimprimir() {}
  virtual void registrarCliente() {}
  virtual void actualizarDetraccion() {}
  virtual DetalleLineas* detalle() { return nullptr; }
  // Enter on a field that has a way of its own. True: dealt with.
  virtual bool alEntrar(QWidget*) { return false; }
  // Nothing has been entered.
  virtual bool vacia() const = 0;

 protected:
  // Asks for a number "001-000012" and prints that paper again.
  void pedirCopia(const QString& pregunta, const QString& porDefecto,
                  const std::function<bool(const QString& serie, const QString& numero)>& imprimir);
  // Runs a commit and goes where it sends the cashier, or to the first control behind it.
  void commit(const std::function<std::optional<QString>()>& hacer);

  ContextoCredito c_;
};

PestanaCredito* nuevaPestanaFacturacion(const ContextoCredito& c);
PestanaCredito* nuevaPestanaPagos(const ContextoCredito& c);
PestanaCredito* nuevaPestanaNota(const ContextoCredito& c);
PestanaCredito* nuevaPestanaLiquidacion(const ContextoCredito& c);
