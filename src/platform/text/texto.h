#pragma once
// Fixed-width text. Lengths count characters, never bytes; nothing else in the program cuts or pads a text.
#include <QByteArray>
#include <QString>

// The first / the last `n` characters; a shorter text whole; n <= 0 gives "".
QString Izquierda(const QString& texto, int n);
QString Derecha(const QString& texto, int n);

// `caracter` put in front until the text has `largo` characters. A longer text is not cut.
QString Rellenar(const QString& texto, int largo, QChar caracter = u' ');

// `n` blanks; none for n <= 0.
QString Espacios(int n);

// Blanks (and only blanks) off both ends.
QString Recortar(const QString& texto);

// The last six characters of "000000" + `texto` is Ceros(texto, 6): zeros in front, the left cut off.
QString Ceros(const QString& texto, int largo);

// Windows-1252, the single-byte text of print files, drawer files, settings and logs. A character outside it
// becomes "?". The way back cannot fail: the five bytes without a character come back as themselves.
QByteArray AUnByte(const QString& texto);
QString DeUnByte(const QByteArray& bytes);

// Compares as a Spanish reader sorts: case and accents aside, Ñ after N. Negative, zero or positive.
int CompararEspanol(const QString& a, const QString& b);
