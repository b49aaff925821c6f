#pragma once
#include "platform/io/puertos_sistema.h"

// The operating system's printers through Qt, and PDFs. Needs a QGuiApplication. A font that isn't installed is
// replaced by a fixed-width one, since the paper is fixed columns.
class ImpresorasQt final : public ImpresorasSistema {
 public:
  QStringList nombres() override;
  QString porDefecto() override;
  std::optional<QString> imprimir(const QString& impresora, const QString& letra, int tamano,
                                  const DocumentoImpreso& documento) override;
  // A page as wide as a ticket's roll and as long as the text; only a very long one takes several pages.
  std::optional<QString> escribirPdf(const QString& archivo, const QString& letra, int tamano,
                                     const DocumentoImpreso& documento) override;
};
