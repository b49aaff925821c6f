#pragma once
// The databases of a desk as they lie at rest, to be put back before each fault.
#include <QFile>

#include "apoyo/servidor_prueba.h"
#include "escenas.h"

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

// A scene made ready, what its act leaves when nothing disturbs it, and the way back to where it begins.
class Montaje {
 public:
  Montaje(Credito& e, const Escena& escena) : e_(e), escena_(escena) {
    e.p.persona().dejaPasar(QStringLiteral("Sí"));
    escena.preparar(e);
    pantalla_ = e.v;
    antes_ = historia(e);
    reposo_.emplace(e);
    EXPECT_EQ(QStringLiteral("hecho"), escena.hacer(e));
    despues_ = historia(e);
    EXPECT_NE(antes_, despues_);
  }
  void devolver() {
    reposo_->devolver();
    e_.v = pantalla_;
    e_.p.persona().vistas.clear();
  }
  void empezarDeNuevo() { ::empezarDeNuevo(e_, reposo_->sesion); }
  void comprobar(const std::optional<QString>& fin) {
    comprobarHistoria(e_, escena_, pantalla_, antes_, despues_, fin);
  }

 private:
  Credito& e_;
  const Escena& escena_;
  CajaFacturacionPagos pantalla_;
  QString antes_, despues_;
  std::optional<Reposo> reposo_;
};
