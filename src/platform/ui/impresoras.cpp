#include "platform/ui/impresoras.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <vector>

#include "platform/io/archivo.h"

namespace {

constexpr double kAnchoRollo_mm = 80, kMargen_mm = 4, kLargoMaximo_mm = 4000;
constexpr int kResolucion = 300;

QFont letraFija(const QString& nombre, int puntos) {
  QFont f(nombre, puntos);
  f.setStyleHint(QFont::Monospace);
  f.setFixedPitch(true);
  return f;
}

struct Linea {
  QString texto;
  QFont letra;

  double alto(QPaintDevice& papel) const { return QFontMetricsF(letra, &papel).lineSpacing(); }
};

std::vector<Linea> enLineas(const DocumentoImpreso& documento, const QString& letra, int tamano) {
  std::vector<Linea> lineas;
  for (const ParteImpresa& parte : documento.partes) {
    QFont fuente = letraFija(letra, parte.puntos > 0 ? parte.puntos : tamano);
    fuente.setBold(parte.negrita);
    const QStringList textos = QString(parte.texto).remove(u'\r').split(u'\n');
    for (const QString& texto : textos) lineas.push_back({texto, fuente});
  }
  if (lineas.empty()) lineas.push_back({{}, letraFija(letra, tamano)});
  return lineas;
}

// False when the device fails on the way.
bool pintar(QPagedPaintDevice& papel, const std::vector<Linea>& lineas) {
  QPainter pintor;
  if (!pintor.begin(&papel)) return false;
  double y = 0;
  for (const Linea& linea : lineas) {
    const double alto = linea.alto(papel);
    if (y > 0 && y + alto > papel.height()) {
      if (!papel.newPage()) return false;
      y = 0;
    }
    pintor.setFont(linea.letra);
    pintor.drawText(QRectF(0, y, papel.width(), alto), Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip, linea.texto);
    y += alto;
  }
  return pintor.end();
}

}  // namespace

QStringList ImpresorasQt::nombres() { return QPrinterInfo::availablePrinterNames(); }

QString ImpresorasQt::porDefecto() { return QPrinterInfo::defaultPrinterName(); }

std::optional<QString> ImpresorasQt::imprimir(const QString& impresora, const QString& letra, int tamano,
                                              const DocumentoImpreso& documento) {
  const QPrinterInfo info = QPrinterInfo::printerInfo(impresora);
  if (info.isNull()) return QStringLiteral("el equipo ya no tiene esa impresora");
  QPrinter papel(info, QPrinter::HighResolution);
  papel.setFullPage(false);
  if (!pintar(papel, enLineas(documento, letra, tamano)) || papel.printerState() == QPrinter::Error) {
    return QStringLiteral("la impresora no aceptó el documento");
  }
  return {};
}

std::optional<QString> ImpresorasQt::escribirPdf(const QString& archivo, const QString& letra, int tamano,
                                                 const DocumentoImpreso& documento) {
  const std::vector<Linea> lineas = enLineas(documento, letra, tamano);
  QByteArray bytes;
  QBuffer memoria(&bytes);
  memoria.open(QIODevice::WriteOnly);
  {
    QPdfWriter papel(&memoria);  // into memory: the writer doesn't tell of a full disk
    papel.setResolution(kResolucion);
    double alto = lineas.back().alto(papel);  // a line to spare
    for (const Linea& linea : lineas) alto += linea.alto(papel);
    const double largo_mm = std::min(kLargoMaximo_mm, alto * 25.4 / kResolucion + 2 * kMargen_mm);
    const QPageSize hoja(QSizeF(kAnchoRollo_mm, largo_mm), QPageSize::Millimeter, {}, QPageSize::ExactMatch);
    papel.setPageLayout(QPageLayout(hoja, QPageLayout::Portrait,
                                    QMarginsF(kMargen_mm, kMargen_mm, kMargen_mm, kMargen_mm),
                                    QPageLayout::Millimeter));
    if (!pintar(papel, lineas)) return QStringLiteral("no se pudo componer el PDF");
  }
  return SustituirArchivo(archivo, bytes);
}
