#pragma once
// The screens that a register opens, scripted: what each of them gives back, and which were asked for.
#include <QStringList>

#include "sale/pantallas_venta.h"
#include "sale/traspaso.h"

class PantallasGuion : public PantallasVenta {
 public:
  std::optional<QString> supervisor;
  std::optional<CobroTarjetas> cobro;
  std::optional<EfectivoDocumento> efectivo;
  std::optional<QString> articulo;
  std::optional<TarjetaElegida> cliente;
  std::optional<DocumentoElegido> documento;
  QStringList faltan;                  // screens that are not there
  QStringList abiertas;                // screens that are, with what they were given
  int pedidas = 0;                     // authorisations
  std::optional<VentaEnCurso> enFull;  // the sale that the quick register handed over

  std::optional<QString> autorizar(const QString&) override {
    ++pedidas;
    return supervisor;
  }
  std::optional<CobroTarjetas> voucher(const PedidoVoucher& pedido) override {
    abiertas << QStringLiteral("voucher %1 %2").arg(static_cast<int>(pedido.nTipoVenta)).arg(pedido.txtSoles);
    return cobro;
  }
  std::optional<EfectivoDocumento> pagoEfectivo(double total) override {
    abiertas << QStringLiteral("efectivo %1").arg(total);
    return efectivo;
  }
  std::optional<QString> buscarArticulo() override {
    abiertas << QStringLiteral("artículos");
    return articulo;
  }
  std::optional<TarjetaElegida> buscarCliente(const QString& texto) override {
    abiertas << QStringLiteral("clientes ") + texto;
    return cliente;
  }
  std::optional<DocumentoElegido> buscarParalela(ListaParalela lista, bool soloVer) override {
    abiertas << QStringLiteral("paralela %1%2").arg(static_cast<int>(lista)).arg(soloVer ? u" ver" : u"");
    return documento;
  }
  void retiro() override { abiertas << QStringLiteral("retiro"); }
  bool irAFull(const VentaEnCurso& venta) override {
    enFull = venta;
    return true;
  }
  void noDisponible(const QString& pantalla) override { faltan << pantalla; }
};
