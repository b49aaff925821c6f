#include "platform/ui/impresoras.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>

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

QStringList enLineas(const QStringList& textos) {
  QString todo = textos.join(u'\n');
  return todo.remove(u'\r').split(u'\n');
}

// False when the device fails on the way.
bool pintar(QPagedPaintDevice& papel, const QFont& letra, const QStringList& lineas) {
  QPainter pintor;
  if (!pintor.begin(&papel)) return false;
  pintor.setFont(letra);
  const double alto = QFontMetricsF(letra, &papel).lineSpacing();
  double y = 0;
  for (const QString& linea : lineas) {
    if (y > 0 && y + alto > papel.height()) {
      if (!papel.newPage()) return false;
      y = 0;
    }
    pintor.drawText(QRectF(0, y, papel.width(), alto), Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip, linea);
    y += alto;
  }
  return pintor.end();
}

}  // namespace

QStringList ImpresorasQt::nombres() { return QPrinterInfo::availablePrinterNames(); }

QString ImpresorasQt::porDefecto() { return QPrinterInfo::defaultPrinterName(); }

std::optional<QString> ImpresorasQt::imprimir(const QString& impresora, const QString& letra, int tamano,
                                              const QStringList& textos) {
  const QPrinterInfo info = QPrinterInfo::printerInfo(impresora);
  if (info.isNull()) return QStringLiteral("el equipo ya no tiene esa impresora");
  QPrinter papel(info, QPrinter::HighResolution);
  papel.setFullPage(false);
  if (!pintar(papel, letraFija(letra, tamano), enLineas(textos)) || papel.printerState() == QPrinter::Error) {
    return QStringLiteral("la impresora no aceptó el documento");
  }
  return {};
}

std::optional<QString> ImpresorasQt::escribirPdf(const QString& archivo, const QString& letra, int tamano,
                                                 const QStringList& textos) {
  const QStringList lineas = enLineas(textos);
  const QFont fuente = letraFija(letra, tamano);
  QByteArray bytes;
  QBuffer memoria(&bytes);
  memoria.open(QIODevice::WriteOnly);
  {
    QPdfWriter papel(&memoria);  // into memory: the writer doesn't tell of a full disk
    papel.setResolution(kResolucion);
    const double linea_mm = QFontMetricsF(fuente, &papel).lineSpacing() * 25.4 / kResolucion;
    const double largo_mm = std::min(kLargoMaximo_mm, linea_mm * (lineas.size() + 1) + 2 * kMargen_mm);
    const QPageSize hoja(QSizeF(kAnchoRollo_mm, largo_mm), QPageSize::Millimeter, {}, QPageSize::ExactMatch);
    papel.setPageLayout(QPageLayout(hoja, QPageLayout::Portrait, QMarginsF(kMargen_mm, kMargen_mm, kMargen_mm, kMargen_mm),
                                    QPageLayout::Millimeter));
    if (!pintar(papel, fuente, lineas)) return QStringLiteral("no se pudo componer el PDF");
  }
  return SustituirArchivo(archivo, bytes);
}
