#pragma once
#include <QHash>
#include <memory>

#include "platform/io/programas.h"

class QProcess;

// The machine's own. What is still running when it goes is ended.
class ProgramasSistema final : public Programas {
 public:
  ProgramasSistema();
  ~ProgramasSistema() override;

  qint64 iniciar(const QString& titulo, const QString& programa, const QStringList& argumentos,
                 const QString& carpeta) override;
  bool esperar(qint64 proceso) override;
  qint64 buscar(const QString& titulo) const override;
  bool cerrar(const QString& titulo) override;
  bool abrir(const QString& enlace) override;

 private:
  QHash<QString, std::shared_ptr<QProcess>> abiertos_;
};
