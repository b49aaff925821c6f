#pragma once
// The bases of the maintenance screens. A screen is a table: its buttons and columns, or its fields.
#include <functional>
#include <optional>

#include "foundation/mantenimiento.h"
#include "foundation/rutinas.h"
#include "platform/ui/forma.h"
#include "platform/ui/lista.h"

class QVBoxLayout;

struct BotonLista {
  QString nombre, rotulo;
  std::optional<ModoDetalle> modo;  // of the detail that it opens; nothing for a button that does nothing
};

// "&Nuevo", "&Editar", "&Borrar", "&Ver" as cmdEditar(0) to (3).
std::vector<BotonLista> botonesDeLista();

struct AspectoLista {
  QString nombre, titulo;
  QString encabezado = {};  // above the list, "" for none
  std::vector<BotonLista> botones = botonesDeLista();
  QString sinFilas = {};  // box titled "Mensaje" when a row is needed; "" disables the buttons instead
};

// A list screen: search field, grid, buttons, "&Salir", count of rows. A detail that saved changes its row in place;
// the list isn't read again.
class frmMantenimientoLista : public Forma {
  Q_OBJECT
 protected:
  // `lista` becomes the screen's.
  frmMantenimientoLista(Puesto& p, const AspectoLista& aspecto, Lista* lista, QWidget* padre);

  // Opens the detail on the row (nothing for a new one) and gives the row to show after a save; nothing when it was
  // left without saving. After a deletion any row will do.
  virtual std::optional<FilaLista> detalle(ModoDetalle modo, const FilaLista* fila) = 0;
  // The row after its flag was turned round; nothing when it stays.
  virtual std::optional<FilaLista> activar(const FilaLista&) { return {}; }

  Puesto& puesto() { return p_; }
  Lista& lista() { return *lista_; }
  // The rows that were read, shown by `fila`.
  template <class Filas, class F>
  void llenarCon(const Filas& filas, F fila) {
    std::vector<FilaLista> mostradas;
    mostradas.reserve(static_cast<size_t>(std::size(filas)));
    for (const auto& f : filas) mostradas.push_back(fila(f));
    lista_->llenar(std::move(mostradas));
  }
  // The button cmdActivar, "Desac&tivar" or "Ac&tivar" by the selected row.
  void conActivar();
  // Selects the first row that holds `texto` anywhere in the cell of that column, or in any cell. False: none does.
  bool buscar(const QString& texto, int columna = -1);
  QString textoBuscado() const;

  bool alEntrar(QWidget* campo) override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  QPushButton* nuevoDeLista(const BotonLista& b);
  void abrir(ModoDetalle modo);
  void turnar();
  void actualizar(int fila);

  Puesto& p_;
  Lista* lista_;
  QString sinFilas_;
  Campo* buscar_;
  bool hallado_ = true;  // what stands there is in the list
  QLabel* cuenta_;
  QVBoxLayout* botones_;
  std::vector<QPushButton*> conFila_;  // those that need a row
  QPushButton* activar_ = nullptr;
};

// How a field of a detail takes and shows its text.
struct AjustesCampo {
  std::vector<ClaseTecla> filtro = {};
  std::function<QString(const QString&)> mascara = {};     // the text after the field is left
  bool fijo = false;                                       // locked in every mode
  std::vector<std::pair<QString, QString>> entradas = {};  // of an Eleccion: code, words
};

// A field of a detail screen. `texto` and `marca` belong to the screen's data and outlive the screen.
struct CampoDetalle {
  enum Clase {
    Texto,
    Importe,   // to the right
    Clave,     // what is typed isn't shown
    Marca,     // a box
    Opciones,  // nombre(0) for yes and nombre(1) for no; `rotulo` "Estado|Activo|Inactivo"
    Eleccion   // one of `entradas`, none at first; `texto` is its code
  };
  Clase clase;
  QString nombre, rotulo;
  QString* texto;
  bool* marca = nullptr;  // of a Marca, true for the first of the Opciones
  AjustesCampo ajustes = {};
};

struct AspectoDetalle {
  QString nombre, titulo;
  ModoDetalle modo;
  QString marco = {};  // title of the panel
};

// A detail screen: fields, then "&Aceptar" and "&Cancelar" as cmdEstandar(0) and (1). In the modes that don't edit all
// fields are locked.
class frmMantenimientoDetalle : public Forma {
  Q_OBJECT
 protected:
  frmMantenimientoDetalle(const AspectoDetalle& aspecto, const std::vector<CampoDetalle>& campos, QWidget* padre);

  // Checks and stores what the fields hold, which has been taken over into the screen's data. True closes the screen;
  // false leaves it open, with `campoMal` marked unless it is "".
  virtual bool guardar(QString& campoMal) = 0;

  // A control of the screen by its name.
  template <class T>
  T* control(const char* nombre) {
    return findChild<T*>(QLatin1String(nombre));
  }
  bool seEdita() const { return SeEdita(modo_); }

 private:
  QWidget* crear(const CampoDetalle& c);
  Campo* crearTexto(const CampoDetalle& c);
  QWidget* crearOpciones(const CampoDetalle& c);
  QWidget* crearEleccion(const CampoDetalle& c);
  void bloquear();
  void aceptar();

  ModoDetalle modo_;
  Panel* panel_;
  QPushButton* aceptar_;
  std::vector<std::function<void()>> recoger_;
};
