#pragma once
// The language of screenplays: one action a line, `#` for comments, the last argument to the end of the line.
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

// An action that cannot be done; `texto` says why, in the words of the play's reader.
struct ErrorGuion {
  QString texto;
};

struct Accion {
  int linea = 0;
  QString verbo;
  QStringList argumentos;  // as many as the verb takes; an optional one that is not there is missing at the end

  // The argument, "" when it is not there.
  QString arg(int n) const { return argumentos.value(n); }
  // The argument as a whole number from `minimo` on, of nine digits at most; throws ErrorGuion.
  int entero(int n, int minimo) const;
};

// Reads a line. Nothing for a blank line or a comment. Throws ErrorGuion for an action that is not known or lacks
// arguments. Where the last argument is no free text, "# ..." behind it is a comment too.
std::optional<Accion> leerAccion(const QString& linea, int numero);

// The table of actions as the command's help shows it, one a line.
QStringList usosDeAcciones();

// A text in one line: CR LF, CR and LF as the two characters "\n".
QString enUnaLinea(QString texto);

// The lines of a play, fed as bytes in UTF-8 (a byte order mark is skipped), CR LF or LF.
class FuenteGuion {
 public:
  enum class Estado { Hay, Todavia, Fin };

  void alimentar(const QByteArray& bytes);
  // What stands behind the last line break is the last line.
  void cerrar();
  // Takes the next line. `Todavia`: none is complete yet; alLlegar is called when that changes. Throws ErrorGuion
  // for a line that is no UTF-8; the line is taken all the same.
  Estado tomar(QString& linea);
  // Number of the line taken last, from 1.
  int numero() const { return numero_; }

  std::function<void()> alLlegar;

 private:
  QByteArray resto_;
  bool cerrada_ = false;
  int numero_ = 0;
};
