#include "alta/crear_servidor.h"

#include <QDir>

#include "alta/filas.h"
#include "postgres/base_postgres.h"

QStringList FilasDelCentral(const QString& almacen) {
  QStringList s;
  const auto parametro = [&s](const char* codigo, double monto, const QVariant& texto = {}) {
    s << Insercion(QStringLiteral("parametro"), QStringLiteral("cCodParam, nmonto1, vtexto1"),
                   {QString::fromLatin1(codigo), monto, texto});
  };
  parametro("IGV", 18);
  // Detraction: from which amount in soles on, which percentage, paid into which account.
  parametro("DETRS", 700);
  parametro("DETRP", 12);
  parametro("CTABN", 0, QStringLiteral("00-000-000000"));
  s << Insercion(QStringLiteral("Almacen"), QStringLiteral("cCodAlmac, vDscAlmac"),
                 {almacen, QStringLiteral("ALMACÉN ") + almacen});
  // These codes are fixed in the program.
  // clang-format off
  const struct { const char* codigo; const char16_t* nombre; } kFormas[] = {
      {"01", u"EFECTIVO"}, {"02", u"TARJETA"}, {"03", u"CERTIFICADO DE RETENCIÓN"}, {"04", u"DEPÓSITO EN BANCO"}};
  for (const auto& f : kFormas) {
    s << Insercion(QStringLiteral("tipoformapago"), QStringLiteral("cCodTipoPago, vDscTipoPago"),
                   {QString::fromLatin1(f.codigo), QString::fromUtf16(f.nombre)});
  }
  // clang-format on
  s << Insercion(QStringLiteral("banco"), QStringLiteral("cCodBanco, vDscBanco"),
                 {QStringLiteral("02"), QStringLiteral("BANCO DE LA NACIÓN")});
  s << Insercion(QStringLiteral("TipoCredito"), QStringLiteral("cCodTipoCredito, vDscTipoCredito"),
                 {QStringLiteral("01"), QStringLiteral("30 DÍAS")});
  s << Insercion(QStringLiteral("local"), QStringLiteral("idlocal, dsclocal, Activo"), {1, QStringLiteral("SUR"), 1})
    << Insercion(QStringLiteral("local"), QStringLiteral("idlocal, dsclocal, Activo"), {2, QStringLiteral("NORTE"), 0});
  return s;
}

QStringList FilasDelCliente() {
  return {
      Insercion(QStringLiteral("Regla_Punto"), QStringLiteral("nImpoMaxi, nPuntImpo, nPuntCant"), {1000, 10, 1}),
      Insercion(QStringLiteral("local"), QStringLiteral("idlocal, dsclocal, Activo"), {1, QStringLiteral("SUR"), 1}),
      Insercion(QStringLiteral("local"), QStringLiteral("idlocal, dsclocal, Activo"), {2, QStringLiteral("NORTE"), 0}),
      Insercion(QStringLiteral("Localidad"), QStringLiteral("cDepaCode, cProvCode, cDistCode, sLocaName"),
                {999, 999, 999, QStringLiteral("OTRO")}),
  };
}

std::optional<QString> ArchivoDeServidor(const QString& servidor, const QString& carpeta) {
  const CadenaConexion c = leerCadenaConexion(QStringLiteral("Data Source=") + servidor);
  if (c.tipo != TipoMotor::Embebido || c.archivo.isEmpty()) return {};
  return QDir(carpeta).absoluteFilePath(c.archivo);
}

std::optional<CadenaConexion> ServidorDePalabras(const QString& palabras, BaseServidor base) {
  CadenaConexion supuestos;
  supuestos.usuario = QStringLiteral("tarvopos");
  supuestos.catalogo = base == BaseServidor::Central ? QStringLiteral("central") : QStringLiteral("cliente");
  return leerServidorPostgres(palabras, supuestos);
}
