#pragma once
// The code pages of ticket printers: the single-byte text that a printer draws as it was meant.
#include <QByteArray>
#include <QString>

enum class Pagina { Windows1252, Pc858, Pc850, Pc437 };

// What the screen calls it: "Windows-1252", "858", "850", "437". A name that is none of them is Windows1252.
QString NombrePagina(Pagina pagina);
Pagina PaginaDeNombre(const QString& nombre);

// The text in that code page, one byte a character. A letter that the page lacks loses its accent, since a name without
// it can be read; a slanted quote or a long dash becomes the plain one, all else "?". Windows-1252 is AUnByte.
QByteArray EnPagina(const QString& texto, Pagina pagina);
