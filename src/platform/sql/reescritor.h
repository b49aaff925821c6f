#pragma once
// The walk behind reescribir(). Positions are indexes of tokens; ranges are half open.
#include <deque>

#include "platform/sql/funciones_dialecto.h"
#include "platform/sql/reescritura.h"

// An expression that has been walked over.
struct Nodo {
  int ini = 0, fin = 0;
  Tipo tipo = Tipo::Desconocido;
  bool primario = false;  // a name, literal, call or parenthesis: binds tighter than any operator
  int literal = -1;       // the token, when the expression is one literal, in parentheses or not
  bool columna = false;   // a plain column
  bool sinCaso = false;   // ... declared without regard to case
  QString nombre{};       // ... and its name

  bool vacio() const { return ini == fin; }
};

class Reescritor {
 public:
  Reescritor(Edicion& edicion, const Catalogo& catalogo)
      : e_(edicion),
        c_(catalogo),
        m_(edicion.palabras()),
        t_(edicion.tokens()),
        jet_(edicion.dialecto() == Dialecto::Jet),
        ambitos_(1) {}

  Reescritura correr();

 private:
  struct Fuente {
    QString tabla, alias;
    std::vector<Columna> columnas;
  };
  struct Clave {
    int columna, ini, fin;  // of the list, or -1
  };
  // A SELECT at hand, or the statement that holds it. The innermost stands last.
  struct Ambito {
    std::vector<Fuente> fuentes;
    bool ligable = false;   // a literal here is bound
    bool distinto = false;  // the list is of a SELECT DISTINCT
    bool agrupado = false;  // it has a GROUP BY
    const std::vector<Columna>* primera =
        nullptr;                  // columns of the first SELECT of its UNION; null for the first itself
    int orden = -1;               // where its ORDER BY begins ...
    std::vector<Clave> claves{};  // ... and what it orders by
  };
  // Deeper statements than this pass on as they are, before the walk or the engine runs out of stack.
  static constexpr int kHondo = 150;
  struct Nivel {
    explicit Nivel(Reescritor& r) : r_(r) {
      if (++r_.hondo_ > kHondo) r_.rendido_ = true;
    }
    ~Nivel() { --r_.hondo_; }
    Reescritor& r_;
  };

  // Sentences (reescritor.cpp)
  QString signoAjeno() const;
  bool pideParametros() const;
  bool ajusteDeSesion() const;
  void separarSignos();
  void comunes();
  std::vector<Columna> seleccion(const std::vector<Columna>* destino = nullptr);
  std::vector<Columna> nucleo(const std::vector<Columna>* destino, const std::vector<Columna>* primera);
  void nucleoCompleto(int lista, int desde, std::vector<Columna>& salida, const std::vector<Columna>* destino);
  int buscarDesde(int i) const;
  void clausulas(const std::vector<Columna>& salida = {});
  void insertar();
  std::vector<Columna> columnasDeInsercion(const Tabla* tabla);
  void filasDeValores(const std::vector<Columna>& columnas);
  void separarDestino(int lista, int& fin);

  // The list of a SELECT, its order and how much of it (reescritor_lista.cpp)
  void listaDeSalida(int fin, std::vector<Columna>& salida, const std::vector<Columna>* destino);
  void unaColumna(int fin, std::vector<Columna>& salida, const std::vector<Columna>* destino);
  void todasLasColumnas(const QString& alias, std::vector<Columna>& salida) const;
  void ordenYGrupo(const std::vector<Columna>& salida);
  const Columna* columnaDeOrden(const Nodo& n, const std::vector<Columna>& salida) const;
  bool nuncaNula(const Nodo& n, const Columna* deLista) const;
  bool leerTope(Tope& tope);
  void ponerTope(Tope tope, int ini, int lista, int desde);

  // Changes of rows (reescritor_cambios.cpp)
  void actualizar();
  bool fuentesDeCambio(int ini, const QString& nombre);
  QList<QStringView> columnasDeFila() const;
  QStringList asignaciones(const Fuente* destino, bool junta);
  const Fuente* fuenteLlamada(const QString& nombre) const;
  const Fuente* fuenteDeColumna(int i) const;
  void borrarFilas();

  // CREATE TABLE (reescritor_tablas.cpp)
  void crear();
  void declaracion();

  // FROM (reescritor_fuentes.cpp)
  void fuentes();
  void fuente();
  void fuenteEntreParentesis();
  bool soloLiterales(int ini, int fin) const;
  void comoValores(int ini, int fin, const Fuente& f);
  bool sigueJuntura() const;
  QString nombreDeTabla();
  QString aliasDeFuente(bool enCambio = false);
  void sinPistas();
  void agregarFuente(const QString& tabla, const QString& alias);

  // Expressions (reescritor_expresiones.cpp)
  Nodo expresion(int minima = 0);
  Nodo unario();
  Nodo primario();
  Nodo parentesis();
  Nodo nombreOLlamada();
  Nodo caso();
  Nodo binario(Nodo izq, int op, int precedencia);
  Nodo llamadaEntre(const Nodo& izq, int op, QStringView funcion, Tipo tipo);
  Nodo producto(Nodo& izq, int op, Nodo& der);
  Nodo predicado(Nodo izq, int op);
  Nodo enLista(Nodo izq, int op);
  bool alinear(Nodo& sujeto, std::vector<Nodo>& valores);
  int precedencia(int i, bool& predicado) const;
  void hastaCerrar(int abiertos = 1);
  bool finDeExpresion(int i) const;

  // Functions (funciones_dialecto.cpp)
  Nodo llamada(int ini);
  void argumentos(int nombre, std::vector<Nodo>& args, bool distintos);
  void unTipo(int nombre, const ReglaFuncion* regla, std::vector<Nodo>& args);
  Nodo siNo(int nombre, const std::vector<Nodo>& args, Nodo n);
  void ventana();
  Nodo eleccion(int nombre, const std::vector<Nodo>& args, Nodo n);
  Nodo convertir(int ini);
  Nodo moldear(int ini);
  Nodo fechaLiteral(int ini, const Nodo& valor, int cierra);
  struct TipoSql {
    Tipo tipo = Tipo::Desconocido;
    QString largo, decimales;
    bool soloDia = false;  // DATE
    int ini = 0, fin = 0;
  };
  TipoSql tipoSql();
  QString funcionDeTipo(const TipoSql& tipo) const;
  QString largoDeTexto(const TipoSql& tipo) const;

  // Types (reescritor_tipos.cpp)
  Tipo comun(Tipo a, Tipo b) const;
  void comparar(Nodo& a, Nodo& b, bool orden = false);
  void igualarRamas(std::vector<Nodo>& ramas);
  void comoNumero(Nodo& n);
  void divisor(const Nodo& n);
  void compararTextos(Nodo& a, Nodo& b, bool orden);
  void sinFinales(const Nodo& n);
  bool pideColacion(const Nodo& n) const;
  void haciaFecha(Nodo& otro);
  void fechaComoNumero(Nodo& n);
  void unNumeroUnTexto(Nodo& texto);
  void unValor(Nodo& texto);
  Nodo sumar(Nodo a, int op, Nodo b);
  void comoTexto(const Nodo& n);
  void asignar(const Columna& destino, Nodo& n);
  void colacion(const Nodo& n);
  bool asciiLiteral(const Nodo& n) const;
  bool esCodigo(const Nodo& n) const;
  bool porVariantes(const Nodo& columna, const Nodo& literal);
  bool listaPorVariantes(const Nodo& columna, const std::vector<Nodo>& valores);
  void porInicio(const Nodo& columna, const Nodo& literal);
  bool empieza(const Nodo& columna, const Nodo& patron) const;
  QString tramoDe(const QString& columna, const QString& inicio) const;
  QString tramoDePatron(const Nodo& columna, const Nodo& patron);
  const Columna* columna(const QString& alias, const QString& nombre) const;
  bool esAjena(const QString& alias, const QString& nombre) const;

  Ambito& ambito() { return ambitos_.back(); }
  const Ambito& ambito() const { return ambitos_.back(); }

  // Tokens
  const Token& tk(int i) const { return t_[static_cast<size_t>(i) < t_.size() ? i : t_.size() - 1]; }
  bool es(QStringView palabra) const { return tk(p_).es(palabra); }
  bool fin() const { return tk(p_).tipo == TipoToken::Fin || rendido_; }
  bool come(QStringView palabra) { return es(palabra) && avanza(); }
  bool comeOp(QStringView signo) { return tk(p_).op(signo) && avanza(); }
  bool avanza() {
    if (tk(p_).tipo != TipoToken::Fin) ++p_;
    return true;
  }
  // What a typed engine might read in a way of its own is no statement of the dialect.
  void malEscrita(int token) {
    if (m_.tipado && error_.isEmpty())
      error_ = QStringLiteral("Sintaxis incorrecta cerca de '%1'.").arg(tk(token).texto);
  }
  // A name as a typed engine takes it, whatever its words are; the dialect's own stay no names.
  void nombrar(int token);
  // A literal is bound only where its scope says so: elsewhere the engine matches expressions by their text.
  void ligar(int token);

  Edicion& e_;
  const Catalogo& c_;
  const PalabrasMotor& m_;
  const std::vector<Token>& t_;
  bool jet_;
  int p_ = 0;
  int hondo_ = 0;
  bool rendido_ = false;
  QString error_;       // why the statement must not run
  QString tablaNueva_;  // of SELECT ... INTO
  bool conPatron_ = false;
  bool maximo_ = false;                              // the outermost SELECT asks for a MAX
  QString serie_;                                    // ... of this table
  Tope tope_;                                        // of the outermost SELECT
  std::map<QString, std::vector<Columna>> comunes_;  // named by WITH, in lower case
  std::deque<Ambito> ambitos_;
};
