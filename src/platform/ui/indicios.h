#pragma once
#include <QLabel>

// Hints in rows: a row takes as many whole ones as it has room for, and the sign between two stands within a row only.
class Indicios final : public QLabel {
 public:
  static inline const QString kEntre = QStringLiteral("  ·  ");

  explicit Indicios(QWidget* padre = nullptr);
  void poner(const QStringList& partes);

  int heightForWidth(int ancho) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  QStringList renglones(int ancho) const;
  int masAncha() const;

  QStringList partes_;
};
