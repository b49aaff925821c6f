#pragma once
// A read-only list for searches and maintenance screens.
#include <QTableView>
#include <QVariant>
#include <functional>
#include <vector>

struct ColumnaLista {
  enum Clase { Texto, Fecha, Numero };  // how its cells compare when the list is sorted by it
  QString titulo;
  double fraccion = 0.2;  // of the list's width
  bool derecha = false;
  Clase clase = Texto;
};

struct FilaLista {
  QStringList celdas;
  QVariant clave;      // the caller's own
  bool activa = true;  // an inactive row is shown soft, with a mark
};

class ModeloLista;

// Rows are counted from 0 in the order shown. Enter or a double click on a row opens it (`elegida`). A click on a
// title sorts by that column, a second one turns the order round; names sort as in Spanish.
class Lista final : public QTableView {
  Q_OBJECT
 public:
  Lista(const QString& nombre, std::vector<ColumnaLista> columnas, QWidget* padre = nullptr);

  // Shown in the middle while there are no rows.
  QString textoVacio;

  // Takes the rows in the order given and selects the first one. A row without cells gets those that `celdas` makes of
  // its key, once they are asked for: a long list is there before they are all made.
  using CeldasDe = std::function<QStringList(const QVariant& clave)>;
  void llenar(std::vector<FilaLista> filas, CeldasDe celdas = {});
  // Adds at the end and selects it.
  void agregar(FilaLista fila);
  void cambiar(int n, FilaLista fila);
  // The row that takes its place is selected.
  void quitar(int n);

  int filas() const;
  const FilaLista& fila(int n) const;
  // -1 when no row is selected.
  int actual() const;
  // Selects the row and scrolls it into view.
  void elegir(int n);
  // No row is selected any more.
  void desmarcar();
  void ordenar(int columna);

 Q_SIGNALS:
  void elegida(int fila);
  void cambioActual(int fila);  // -1 when the list became empty

 protected:
  void keyPressEvent(QKeyEvent* e) override;
  void mouseDoubleClickEvent(QMouseEvent* e) override;
  void paintEvent(QPaintEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;
  void currentChanged(const QModelIndex& ahora, const QModelIndex& antes) override;

 private:
  std::vector<ColumnaLista> columnas_;
  ModeloLista* modelo_;
  int orden_ = -1;
  bool descendente_ = false;
};
