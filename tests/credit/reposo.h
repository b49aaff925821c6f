#pragma once
// The databases of a desk as they lie at rest, to be put back before each fault.
#include <QFile>

#include "apoyo/servidor_prueba.h"
#include "credito_prueba.h"

class Reposo {
 public:
  const Sesion sesion;  // as it begins

  explicit Reposo(Credito& e) : sesion(e.p.ses), e_(e) {
    cerrar();
    for (const char* nombre : {"TarvoPos.mdb", "central.db", "cliente.db"}) {
      QFile f(e.p.rutas.enPrograma(QString::fromLatin1(nombre)));
      EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << nombre;
      archivos_.emplace_back(f.fileName(), f.readAll());
    }
    for (auto& [base, tablas] : enServidor()) {
      QString guion = QStringLiteral("CREATE SCHEMA guarda;");
      for (const char* t : tablas)
        guion += QStringLiteral("CREATE TABLE guarda.%1 AS TABLE dbo.%1;").arg(QLatin1String(t));
      ServidorPrueba::uno().crudo(base, guion);
    }
    e.abrirAlmacen();
  }
  void devolver() {
    cerrar();
    for (const auto& [nombre, bytes] : archivos_) {
      QFile::remove(nombre + QStringLiteral("-wal"));
      QFile::remove(nombre + QStringLiteral("-shm"));
      QFile f(nombre);
      EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
    }
    for (auto& [base, tablas] : enServidor()) {
      QString guion;
      for (const char* t : tablas) {
        guion +=
            QStringLiteral("DELETE FROM dbo.%1; INSERT INTO dbo.%1 OVERRIDING SYSTEM VALUE SELECT * FROM guarda.%1;")
                .arg(QLatin1String(t));
      }
      ServidorPrueba::uno().crudo(base, guion);
    }
    e_.abrirAlmacen();
  }

 private:
  using Tablas = std::vector<std::pair<CadenaConexion, std::vector<const char*>>>;
  Tablas enServidor() const {
    if (!e_.servidores) return {};
    return {{e_.servidores->central, {"venta01", "venta02", "pagos", "detraccion", "consumoventa", "diario_acto"}},
            {e_.servidores->cliente, {"cliente", "tarjeta", "diario_acto"}}};
  }
  void cerrar() {
    for (Conexion* c : {&e_.p.poCnnLocal, &e_.p.poCnnCentral, &e_.p.poCnnCliente}) c->cerrar();
  }

  Credito& e_;
  std::vector<std::pair<QString, QByteArray>> archivos_;
};
