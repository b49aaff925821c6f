#pragma once
// The book that the test keeps of a desk: what its store must hold and its papers must show. Plain sums in cents, none
// of the program's own routines.
#include <QString>
#include <QStringList>
#include <map>
#include <optional>
#include <vector>

namespace jornada {

using Centimos = qint64;

// "12.5", as the store gives a number.
QString enSoles(Centimos c);

// A line of a document; `dscto` is a signed percentage.
struct Renglon {
  int articulo = 0, cantidad = 1;
  Centimos precio = 0;
  int dscto = 0;
  bool servicio = false;

  Centimos valor() const { return cantidad * precio * (100 + dscto) / 100; }
};

struct Dinero {
  Centimos soles = 0, dolares = 0, vueltoSoles = 0, vueltoDolares = 0;
};

// A row of Operacion; without an article `precio` is the change, negated.
struct Fila {
  int codigo = 0, tipo = 0;
  QString doc, serie;
  int numero = 0;
  Renglon linea;
  Dinero dinero;
  QString emisor;
  int anula = 0;
  bool anulada = false;
  QString tarjeta, turno;
  bool abierta = true;

  bool fiscal() const { return doc == u"01" || doc == u"02"; }
  QString texto() const;
};

// A row of OperacionParalela with its lines. A void's own row has no document.
struct Paralela {
  int codigo = 0, tipo = 0;
  QString doc, serie;
  int numero = 0, moneda = 0;
  Centimos soles = 0, dolares = 0;
  Dinero dinero;
  int estado = 1, relacion = 0, anuladaPor = 0;
  QString tarjeta, turno;
  bool abierta = true;
  std::vector<Renglon> lineas;

  QString texto() const;
};

// The rows of both tables as the store gives them, in the columns of the `texto` above.
extern const char* const kConsultaFilas;
extern const char* const kConsultaParalelas;
extern const char* const kConsultaLineas;

struct Libro {
  std::vector<Fila> filas;
  std::vector<Paralela> paralelas;
  std::map<QString, int> contador;  // by document; boletas and facturas under "02"
  Centimos aperturaSoles = 0, aperturaDolares = 0;
  QString turno;
  int cierres = 0;                       // Z printed so far
  Centimos acumulado[2] = {0, 0};        // of the printers' Z
  std::vector<Centimos> detalleCentral;  // of each day that has been closed

  // By the rule of the numbers: behind the highest one that is stored, or the counter's while none is.
  int siguienteNumero(const QString& doc) const;
  int siguienteCodigo(bool paralela) const;
  Paralela* paralela(int codigo);

  QStringList textoFilas() const;
  QStringList textoParalelas() const;
  QStringList textoLineas() const;
};

// What a report or the count shows. `turno` "" takes the whole day.
struct Cifras {
  int unidades = 0, tickets = 0, vouchers = 0, nulos = 0, retiros = 0;
  Centimos venta = 0, voucher = 0, nulosMonto = 0, retirado = 0, cajaSoles = 0, cajaDolares = 0;
  int boletas = 0, facturas = 0;  // lines
  Centimos boletasMonto = 0, facturasMonto = 0;
  int primero = 0, ultimo = 0;
  std::map<int, int> productos;
  double igvBoletas = 0, igvFacturas = 0, servicio = 0;
};
Cifras cifrasDe(const Libro& l, const QString& turno);

// The two sides of the cash count: sales, and with the parallel documents.
struct LadoEsperado {
  Centimos pagos = 0, voucher = 0, voucherDolares = 0, cash = 0, cashDolares = 0;
};
LadoEsperado ladoPrincipal(const Libro& l);
LadoEsperado ladoZ1(const Libro& l);
// Sold and ordered: what the Z1 and the central database take.
Centimos vendidoConOrdenes(const Libro& l, int* unidades = nullptr);
Centimos detalleDelDia(const Libro& l);

}  // namespace jornada
