#pragma once
// As much of a SQL Server as its driver takes for one: it lets anybody in, says that every statement is done, fails
// those that name an error ("error 2627"), and is silent to one that says "calla" and from there on.
#include <atomic>
#include <thread>

#include "apoyo/enchufe.h"

class ServidorTds {
 public:
  ServidorTds() : fd_(EnchufeEnLoopback(puerto_)) {
    ::listen(fd_, 4);
    hilo_ = std::thread([this] {
      for (int c = -1; (c = ::accept(fd_, nullptr, nullptr)) >= 0;) atendidos_.emplace_back([c] { atender(c); });
    });
  }
  // Each session ends when its driver hangs up.
  ~ServidorTds() {
    ::shutdown(fd_, SHUT_RDWR);
    hilo_.join();
    ::close(fd_);
    for (std::thread& t : atendidos_) t.detach();
  }
  ServidorTds(const ServidorTds&) = delete;
  int puerto() const { return puerto_; }

 private:
  static QByteArray corto(int n) { return QByteArray(1, static_cast<char>(n)) + static_cast<char>(n >> 8); }
  static QByteArray ancho(const QString& t) {
    return QByteArray(reinterpret_cast<const char*>(t.utf16()), 2 * t.size());
  }
  static QByteArray error(int numero) {
    const QString palabras = QStringLiteral("palabras del servidor");
    const QByteArray dentro = corto(numero) + corto(0) + QByteArray("\x01\x10", 2) +
                              corto(static_cast<int>(palabras.size())) + ancho(palabras) + QByteArray(6, '\0');
    return '\xAA' + corto(static_cast<int>(dentro.size())) + dentro + '\xFD' + corto(2) + QByteArray(10, '\0');
  }
  static bool leer(int c, char* donde, size_t n) { return ::recv(c, donde, n, MSG_WAITALL) == static_cast<ssize_t>(n); }
  // A message, of one packet or several.
  static bool mensaje(int c, int& tipo, QByteArray& todo) {
    todo.clear();
    for (unsigned char cabeza[8] = {}; cabeza[1] != 1;) {
      if (!leer(c, reinterpret_cast<char*>(cabeza), 8)) return false;
      QByteArray trozo((cabeza[2] << 8 | cabeza[3]) - 8, '\0');
      if (!leer(c, trozo.data(), static_cast<size_t>(trozo.size()))) return false;
      tipo = cabeza[0];
      todo += trozo;
    }
    return true;
  }
  static void atender(int c) {
    const QByteArray hecho = '\xFD' + QByteArray(12, '\0');
    const QByteArray nombre = ancho(QStringLiteral("SQL Server"));
    const QByteArray entra = '\xAD' + corto(10 + static_cast<int>(nombre.size())) +
                             QByteArray("\x01\x74\0\0\x04\x0A", 6) + nombre + QByteArray("\x10\0\0\0", 4) + hecho;
    const QByteArray saluda("\0\0\x0B\0\x06\x01\0\x11\0\x01\xFF\x10\0\x07\xD0\0\0\x02", 18);  // and can't encrypt
    int tipo = 0;
    QByteArray llega;
    while (mensaje(c, tipo, llega)) {
      const QString texto = QString::fromUtf16(reinterpret_cast<const char16_t*>(llega.constData()), llega.size() / 2);
      if (texto.contains(u"calla")) break;
      const qsizetype mal = texto.indexOf(u"error ");
      const QByteArray dice = tipo == 0x12   ? saluda
                              : tipo == 0x10 ? entra
                              : mal >= 0     ? error(texto.mid(mal + 6, 4).toInt())
                                             : hecho;
      const int largo = static_cast<int>(dice.size()) + 8;
      const QByteArray cabeza = QByteArray("\x04\x01", 2) + static_cast<char>(largo >> 8) + static_cast<char>(largo) +
                                QByteArray("\0\0\x01\0", 4);
      if (::send(c, (cabeza + dice).constData(), static_cast<size_t>(largo), MSG_NOSIGNAL) != largo) break;
    }
    while (mensaje(c, tipo, llega)) continue;
    ::close(c);
  }

  int puerto_ = 0;  // before the socket, which tells it
  int fd_;
  std::thread hilo_;
  std::vector<std::thread> atendidos_;
};
