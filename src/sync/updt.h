#pragma once
// The screen of a synchronisation without its window: what it says, how far it is, and its log, which lies in a file of
// the program folder as well.
#include <QFile>
#include <QString>
#include <deque>
#include <functional>
#include <vector>

struct Puesto;

struct FrmUpdt {
  explicit FrmUpdt(Puesto& p);
  FrmUpdt(const FrmUpdt&) = delete;
  FrmUpdt& operator=(const FrmUpdt&) = delete;

  // As shown.
  QString Label1 = QStringLiteral("Sincronización en progreso");
  QString lblEtiqueta = QStringLiteral("Por favor espere a que la sincronización termine...");
  std::deque<QString> lstLog;  // the newest ones: a first load makes hundreds of thousands
  int prgBar = 0;              // 0 to 100
  bool cmdClose = false;       // can be used
  bool sePuedeDetener = false;
  qint64 lineas = 0, errores = 0;  // of the whole run; an error begins with "N"

  bool enLotes = true;  // many rows go in batches; off, each goes alone, with the same result

  // Why the run came to a bad end, where no box has told it yet.
  QString porque;

  // Called when there is something to show, once the databases stand open.
  std::function<void()> alMostrar = [] {};
  // Called whenever something above has changed; the window paints itself there.
  std::function<void()> alCambiar = [] {};
  // Asked between rows of the pull: whether the person wants it to end.
  std::function<bool()> detener = [] { return false; };

  // One line of the log, in the list and in the file (Sincro_yyyymmdd.log, "hh:mm:ss text", Windows-1252).
  void InsertaLinea(const QString& linea) { insertar({linea}); }
  // Those of a batch, at one time of the clock and with one word to the window.
  void insertar(std::vector<QString> lineas);
  // Nothing once the bar stands at 100 or more.
  void AumentaBarra(int n);
  // Counts what the log holds, says it, and lets the screen be closed.
  void Refrescar();
  void terminar(const QString& titulo);  // the caption of an end, the bar back at 0

 private:
  Puesto& p_;
  QFile archivo_;
  int segundo_ = -1;  // of the day, and how the log's lines tell it
  QByteArray hora_;
};

// How many lines the list keeps.
constexpr size_t kLineasALaVista = 500;
