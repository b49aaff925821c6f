#pragma once
#include <memory>

#include "credit/cuentas_clientes.h"
#include "platform/ui/forma.h"

class QProgressBar;
class QTreeWidget;
class QTreeWidgetItem;
struct Puesto;

// The accounts of all customers as a tree: customers, their documents, the payments. The customers come at once, their
// totals little by little, and what lies below a row when it is opened.
class frmConsCtaCteCliente final : public Forma {
  Q_OBJECT
 public:
  explicit frmConsCtaCteCliente(Puesto& p, QWidget* padre = nullptr);

 protected:
  bool alEntrar(QWidget* campo) override;

 private:
  void crearArbol();
  // Runs a reading on the central database; false when it failed, which has been told.
  bool leer(const std::function<ErrorCuentas(Conexion&)>& lectura);
  void llenar();
  void seguir();
  void mostrarTotales(size_t hasta);
  void abrir(QTreeWidgetItem* fila);
  void abrirCliente(QTreeWidgetItem* fila, size_t n);
  void abrirDocumento(QTreeWidgetItem* fila);
  void filtrar();

  Puesto& p_;
  std::vector<CuentaCliente> cuentas_;       // each looked into by its row
  std::vector<QString> llanos_;              // their names as the filter compares them; none before its first text
  std::vector<DocumentoCuenta> documentos_;  // all that were opened; a row knows its place
  size_t conTotales_ = 0;                    // how many customers have theirs
  Campo* txtFiltro_ = nullptr;
  QTreeWidget* arbol_ = nullptr;
  QProgressBar* barra_ = nullptr;
  std::shared_ptr<void> timer_;
};
