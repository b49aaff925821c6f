#pragma once
#include "credit/documentos_pendientes.h"
#include "platform/ui/forma.h"

class Lista;

// The picker of an open billing document; its name and title tell what for.
class frmDocumentosPendientes final : public Forma {
  Q_OBJECT
 public:
  frmDocumentosPendientes(Puesto& p, PendientesDe para, DocCredito doc, QWidget* padre = nullptr);

  const DocumentosPendientes& documentos() const { return d_; }
  // The row that was chosen, once the screen was accepted.
  int elegida() const { return elegida_; }

 protected:
  bool alEntrar(QWidget* campo) override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  void filtrar();
  void elegir(int n);

  DocumentosPendientes d_;
  std::vector<int> filas_;  // of the list, those shown
  int elegida_ = -1;
  Campo* txtCliente_ = nullptr;
  Lista* lista_ = nullptr;
  QLabel* cuenta_ = nullptr;
};

// Shows the picker over `padre`; gives the list and the row chosen, nothing when it was left.
struct PendienteElegido {
  DocumentosPendientes documentos;
  int fila = 0;
};
std::optional<PendienteElegido> elegirPendiente(Puesto& p, QWidget* padre, PendientesDe para, DocCredito doc);
