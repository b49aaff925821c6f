#pragma once
// Routines that the screens share.
#include <QChar>
#include <QString>
#include <initializer_list>

struct Puesto;

enum class ClaseTecla { Letras = 0, Decimal = 1, Mayusculas = 2, Minusculas = 3, Digitos = 4 };

// What may be typed: each class in order looks at the character; one that is refused comes back as QChar(0), which
// types nothing. Backspace (8) passes.
QChar FiltrarTecla(QChar tecla, std::initializer_list<ClaseTecla> clases);

// The same for names: the second blank in a row shows a box and becomes a backspace. The blanks are counted through the
// session, from one field to the next.
QChar FiltrarTeclaNombre(Puesto& p, QChar tecla, std::initializer_list<ClaseTecla> clases);

// False, after the box that tells it, when a comma stands for a point in `texto`.
[[nodiscard]] bool SinComaDecimal(Puesto& p, const QString& texto);
void AvisarComaDecimal(Puesto& p);

// Whether the path exists; else, with `mensaje` on, shows `texto`.
bool ExisteArchivo(Puesto& p, const QString& ruta, const QString& texto, bool mensaje);

// Today is not earlier than the last operation and the last parallel operation in the store. True as well when the
// central database or the store can't be asked.
bool VerificarFechaSistema(Puesto& p);

// Waits until that process ends, however long; false when it can't be found.
bool EsperarProceso(Puesto& p, qint64 nProceso);

// Asks the program of that window title to close; a box tells when it doesn't.
void CerrarVentana(Puesto& p, const QString& sTitulo);

// Hands a link, or with `bCorreo` a mail address, to the system. False when the system has no program for it.
[[nodiscard]] bool AbrirEnlace(Puesto& p, const QString& sEnlace, bool bCorreo = false);
