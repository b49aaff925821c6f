#pragma once
#include <QFrame>
#include <QString>

class QLabel;

// A line of the dark display: a text of two fixed columns, like that of a customer display. The left column stands on
// the left, the right one on the right, without the blanks between them. `texto` holds the line as it was given.
class Renglon final : public QFrame {
  Q_OBJECT
  Q_PROPERTY(QString texto READ texto WRITE poner)
 public:
  // `corte`: where the right column begins. The roles are those of a label in a display; `apilado` puts the right
  // column below the left one, for a figure that needs the whole width.
  Renglon(const QString& nombre, int corte, const QString& papelIzquierdo, const QString& papelDerecho,
          bool apilado = false, QWidget* padre = nullptr);

  QString texto() const { return texto_; }
  void poner(const QString& texto);

 private:
  int corte_;
  QString texto_;
  QLabel *izquierda_, *derecha_;
};
