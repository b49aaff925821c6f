#pragma once
// The grid of lines of a register: rows of texts that the caller holds, edited cell by cell.
#include <QTableView>
#include <functional>
#include <optional>
#include <vector>

class EditorCelda;
class ModeloRejilla;

struct ColumnaRejilla {
  QString titulo;
  int ancho = 80;        // pixels; 0 takes what is left
  bool derecha = false;  // amounts stand to the right
  bool editable = false;
  bool boton = false;  // a cell that is pressed instead of typed in
  bool oculta = false;
};

struct CeldaRejilla {
  int fila, columna;
  bool operator==(const CeldaRejilla&) const = default;
};

class Rejilla final : public QTableView {
  Q_OBJECT
 public:
  // Where the rows lie. They may change at any time; call refrescar() afterwards.
  struct Origen {
    std::function<int()> filas;
    std::function<QString(int fila, int columna)> texto;
  };

  Rejilla(const QString& nombre, std::vector<ColumnaRejilla> columnas, Origen origen, QWidget* padre = nullptr);

  // An edited cell is left with `texto`: stores it in the caller's rows (`texto` may be changed) and gives true, or
  // refuses it (boxes are shown inside): then the editor stays open with the text as typed. Rows may be added or
  // taken away inside.
  std::function<bool(int fila, int columna, QString& texto)> salir;
  // The cell after a committed one, or after Enter on a cell at rest. Default: the next editable cell of the row,
  // else the first one of the next row, else nothing (the cell stays).
  std::function<std::optional<CeldaRejilla>(int fila, int columna)> siguiente;
  // Enter, Space or a click on a cell of a button column.
  std::function<void(int fila, int columna)> pulsar;
  // Which key may type into a cell: gives the character, QChar(0) for none. Default: all.
  std::function<QChar(int fila, int columna, QChar tecla)> filtro;
  // What follows Esc in an open cell, whose text is dropped. Default: the cell keeps the keyboard.
  std::function<void()> alAbandonar;
  // Del in an open cell whose whole text is selected. Default: the text goes.
  std::function<void()> alSuprimir;
  // Shown in the middle while there are no rows or all cells of the only row are blank.
  QString textoVacio;

  // The caller's rows have changed: repaints the cells whose text differs from what is shown, and only those.
  void refrescar();
  void ponerTitulo(int columna, const QString& titulo);
  void ponerEditable(int columna, bool editable);
  bool esEditable(int columna) const { return columnas_[static_cast<size_t>(columna)].editable; }

  // The current cell; {-1, -1} when there is none.
  CeldaRejilla celda() const;
  // Moves to a cell, with the keyboard. An open editor is left first; false when it refused.
  bool irA(CeldaRejilla celda);
  // Makes it the current cell, without the keyboard; nothing while a cell is open.
  void ponerCelda(CeldaRejilla celda);
  // Opens the editor of the current cell, with `texto` in place of what stands there. False in a locked column.
  bool editar(const std::optional<QString>& texto = {});
  bool editando() const { return editor_ != nullptr; }
  // Leaves an open editor as Enter does, but stays on the cell. True when none is open any more.
  bool dejarCelda();
  // Closes an open editor; what was typed is dropped.
  void abandonarCelda();

 protected:
  void keyPressEvent(QKeyEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseDoubleClickEvent(QMouseEvent* e) override;
  void paintEvent(QPaintEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;
  void currentChanged(const QModelIndex& ahora, const QModelIndex& antes) override;
  void focusInEvent(QFocusEvent* e) override;
  void focusOutEvent(QFocusEvent* e) override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  void avanzar();
  void repartirAnchos();
  void pintarCelda(const QModelIndex& celda);
  bool vacia() const;
  std::optional<CeldaRejilla> siguientePorDefecto(int fila, int columna) const;
  bool teclaDeEditor(QKeyEvent* e);
  void colocarEditor();

  std::vector<ColumnaRejilla> columnas_;
  ModeloRejilla* modelo_;
  EditorCelda* editor_ = nullptr;
  CeldaRejilla celdaEditor_{-1, -1};
  bool saliendo_ = false;
};
