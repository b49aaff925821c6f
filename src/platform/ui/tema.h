#pragma once
// The one theme: palette, type scale, metrics. A form gives its controls a role and never a colour or a font:
//
//   setProperty("papel", "...")
//     QPushButton  "principal" the one main button; "grande" a main button of the home screen; "tecla" a key of the
//                  quick register (with "asignada" true or false); "accion" a key of the bottom row
//     QLabel       "titular" the line of the day's state; "sentencia" what is asked; "suave" hints and notes;
//                  "bien", "cuidado", "alto" status words; "ocupado" what a long step is doing
//     QFrame       "tarjeta" a card on the ground; "pantalla" the dark display
//     QLabel in a display: "cifra" the total, "vuelto" the change, "leyenda" a caption, "articulo" its 18 pt lines
//     QTableView   "registro" the lines of a register; "impreso" lines as the paper shows them
//     QPlainTextEdit "rollo" a text as the paper has it
//     QLineEdit    "pendiente" the yellow of what is pending
//   setProperty("estado", "mal")    a field whose text was refused
//
// After changing a role of a control that is already shown call tema::aplicarRol.
#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>

class QApplication;
class QWidget;

namespace tema {

inline constexpr QRgb kFondo = 0xFFF4F6F8, kSuperficie = 0xFFFFFFFF;
inline constexpr QRgb kTinta = 0xFF1B2430, kTintaSuave = 0xFF4A5766;
inline constexpr QRgb kLinea = 0xFFD5DBE1, kLineaCampo = 0xFF7A8794;
inline constexpr QRgb kAccion = 0xFF0B5CAD, kFoco = 0xFFC25E00;
inline constexpr QRgb kPantalla = 0xFF12263A, kCifra = 0xFFFFD76A, kVuelto = 0xFF9FE3B4;
inline constexpr QRgb kBien = 0xFF1E7B34, kCuidado = 0xFF8A4B00, kFondoCuidado = 0xFFFFF4DF, kAlto = 0xFFB3261E;
inline constexpr QRgb kFijo = 0xFF4A5766, kFondoFijo = 0xFFE6EAEE;
inline constexpr QRgb kTeclaAsignada = 0xFFFFFFC0, kTeclaLibre = 0xFFE0E0E0;

inline constexpr int kPtChica = 9, kPtMenu = 10, kPtIndicio = 11, kPtCampo = 12, kPtRejilla = 14, kPtPantalla = 18,
                     kPtTitular = 28, kPtVuelto = 28, kPtTotal = 36;
inline constexpr int kPaso = 4, kAltoCampo = 32, kAltoFila = 30, kAnilloFoco = 3, kHuecoFoco = 2;

// Puts the theme on the whole program. Once, before the first window. Where the screen offers less than the 1024 x 690
// that the windows are made for, letters and measures shrink together, so that nothing is cut or lies outside.
void aplicar(QApplication& app);

// A measure or a letter of the theme as the screen has it.
int px(int medida);
int pt(int puntos);
// What a window can take of the screen at most, its frame left out.
QSize sitio(const QWidget* ventana);

// Sets a role of a control that may already be shown.
void aplicarRol(QWidget* control, const char* propiedad, const QVariant& valor);

// The drawing of that name (":/iconos/<nombre>.svg"), 24 px, also for the off state. Empty when there is none.
QIcon icono(const QString& nombre);

// The program's own sign, `lado` px.
QPixmap logo(int lado);

// The grounds of the three levels of the accounts, from 0, and of what is pending in them.
QColor banda(int nivel);
QColor pendiente();

// A family with figures of one width, for anything that is paper.
QString familiaPapel();

}  // namespace tema
