#include "platform/io/libro.h"

#include <xlsxwriter.h>

#include <QFile>
#include <array>

namespace {

using Formatos = std::array<lxw_format*, 3>;

Formatos formatosDe(lxw_workbook* libro) {
  Formatos f{};
  const char* const mascaras[] = {nullptr, "#,##0.00", "0000000"};
  for (size_t n = 1; n < f.size(); ++n) {
    f[n] = workbook_add_format(libro);
    format_set_num_format(f[n], mascaras[n]);
  }
  return f;
}

lxw_error ponerCelda(lxw_worksheet* hoja, std::pair<int, int> lugar, const Celda& celda, const Formatos& formatos) {
  const auto fila = static_cast<lxw_row_t>(lugar.first - 1);
  const auto columna = static_cast<lxw_col_t>(lugar.second - 1);
  if (const auto* n = std::get_if<NumeroCelda>(&celda)) {
    return worksheet_write_number(hoja, fila, columna, n->valor, formatos[static_cast<size_t>(n->formato)]);
  }
  const QByteArray texto = std::get<QString>(celda).toUtf8();
  return texto.isEmpty() ? LXW_NO_ERROR : worksheet_write_string(hoja, fila, columna, texto.constData(), nullptr);
}

lxw_error ponerHoja(lxw_workbook* libro, const HojaLibro& h, const Formatos& formatos) {
  lxw_worksheet* hoja = workbook_add_worksheet(libro, h.nombre.toUtf8().constData());
  if (!hoja) return LXW_ERROR_PARAMETER_VALIDATION;
  for (size_t n = 0; n < h.anchos.size(); ++n) {
    worksheet_set_column(hoja, static_cast<lxw_col_t>(n), static_cast<lxw_col_t>(n), h.anchos[n], nullptr);
  }
  worksheet_set_portrait(hoja);
  worksheet_set_paper(hoja, 9);  // A4
  worksheet_set_margins(hoja, 0.3, 0.3, 0.5, 0.5);
  lxw_header_footer_options margen{};
  margen.margin = 0.1;
  worksheet_set_header_opt(hoja, h.encabezado.toUtf8().constData(), &margen);
  worksheet_set_footer_opt(hoja, h.pie.toUtf8().constData(), &margen);
  if (h.filasRepetidas > 0) worksheet_repeat_rows(hoja, 0, static_cast<lxw_row_t>(h.filasRepetidas - 1));
  for (const auto& [lugar, celda] : h.celdas) {
    if (const lxw_error error = ponerCelda(hoja, lugar, celda, formatos)) return error;
  }
  return LXW_NO_ERROR;
}

}  // namespace

// Beside its place first: a file that could not be finished must not take that of a good one.
std::optional<QString> EscribirLibro(const Libro& libro, const QString& ruta) {
  const QString provisional = ruta + QStringLiteral(".tmp");
  const auto fallo = [&](const QString& porque) {
    QFile::remove(provisional);
    return QStringLiteral("No se puede escribir %1: %2").arg(ruta, porque);
  };
  lxw_workbook* w = workbook_new(QFile::encodeName(provisional).constData());
  if (!w) return fallo(QStringLiteral("sin memoria"));
  const Formatos formatos = formatosDe(w);
  lxw_error error = LXW_NO_ERROR;
  for (const HojaLibro& h : libro.hojas) {
    if (error == LXW_NO_ERROR) error = ponerHoja(w, h, formatos);
  }
  const lxw_error alCerrar = workbook_close(w);  // frees it, whatever came of it
  if (error == LXW_NO_ERROR) error = alCerrar;
  if (error != LXW_NO_ERROR) {
    return fallo(error == LXW_ERROR_CREATING_XLSX_FILE || error == LXW_ERROR_CREATING_TMPFILE
                     ? QStringLiteral("sin permiso o disco lleno")
                     : QString::fromUtf8(lxw_strerror(error)));
  }
  QFile::remove(ruta);
  if (!QFile::rename(provisional, ruta)) return fallo(QStringLiteral("el archivo está en uso"));
  return {};
}
