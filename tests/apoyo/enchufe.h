#pragma once
// A socket on loopback that listens at a port of the system's choice.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

inline sockaddr_in EnLoopback(int puerto) {
  sockaddr_in d{};
  d.sin_family = AF_INET;
  d.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  d.sin_port = htons(static_cast<in_port_t>(puerto));
  return d;
}

// Bound, not listening yet; the caller closes it.
inline int EnchufeEnLoopback(int& puerto) {
  const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in d = EnLoopback(0);
  socklen_t largo = sizeof d;
  ::bind(fd, reinterpret_cast<sockaddr*>(&d), largo);
  ::getsockname(fd, reinterpret_cast<sockaddr*>(&d), &largo);
  puerto = ntohs(d.sin_port);
  return fd;
}
