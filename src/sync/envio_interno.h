#pragma once
// The parts of one sending.
#include <QSet>

#include "store/codigos.h"
#include "sync/cotejo.h"
#include "sync/detalle_enviado.h"
#include "sync/fila_central.h"
#include "sync/pasada.h"

// Not marked, or marked by the screen that issued it before it was ever sent.
inline Sql ParalelaPorEnviar() {
  return FormatearSQL(
      u"(NOT cOperTipo IN ($) AND (cFlagSincronizacion = '0' OR NOT cOperCode IN (SELECT cOperCode FROM "
      "ParalelaEnviada)))"_sql,
      {Codigos(kSinDocumento)});
}

inline QString claveDeDocumento(const QString& serie, const QString& numero) { return serie + u'-' + numero; }

class Envio {
 public:
  Envio(Puesto& p, FrmUpdt& pantalla) : p_(p), pantalla_(pantalla) {}

  FinPasada todo();

 private:
  using Error = std::optional<ErrorBD>;

  // envio.cpp
  bool leerPaso();
  bool leerRangos();
  bool cabeceraZ1();
  bool faltaDetalle();
  void cortado();  // the words of a run that the server has ended
  void procedimientos();
  ClienteTarjeta cliente(const QString& tarjeta, int local);
  // Whether the centre holds documents of these numbers as posted. Nothing when it can't be read.
  std::optional<QSet<QString>> contabilizados(const Filas& filas);
  // Both commits, the one there first; a row that is there and not marked here is found by the comparison.
  Error confirmarAmbas();
  void deshacerAmbas();
  std::vector<FinFila> confirmarLote(std::vector<FinFila> fines);
  void yaExiste(const Recordset::Fila& f);
  Sql rangosPendientes(bool paralelas, LiteralSql columna) const;
  // Moments of the rows to send, and whether the centre may know some of them.
  bool prepararCotejo(bool paralelas);

  // envio_operaciones.cpp
  FinPasada operaciones();
  FinFila operacion(const Recordset::Fila& f);
  std::vector<FinFila> lote(const Filas& filas);
  Error enviarLote(const Filas& filas, std::vector<FinFila>& fines, const std::vector<bool>& estaban);
  bool llevaDetalle(qint64 id) const;
  Error marcar(const Recordset::Fila& f);
  Error siguienteId(qint64& id);

  // envio_paralelas.cpp
  FinPasada paralelas();
  FinFila paralela(const Recordset::Fila& f);
  std::vector<FinFila> loteParalelas(const Filas& filas);
  // The documents with their lines and detail, up to the commits. `fatal`: the run must end.
  Error enviarParalelas(const Filas& filas, const std::vector<bool>& estaban, bool& fatal);
  // To the end of the transaction no other sending of this till gets past it.
  Error bloquear();
  Error marcarParalelas(const Filas& filas, const std::vector<bool>& estaban);
  QString localDe(const Recordset::Fila& f);
  FinPasada estados();
  Error cambiarEstado(const Recordset::Fila& f);

  // envio_z.cpp
  bool enviarZ();
  Error unZ(const Recordset::Fila& f, std::vector<Sql>& alFinal);
  Error renumerar(const Recordset::Fila& f, qint64 nuevo);
  Error contabilizar();

  Puesto& p_;
  FrmUpdt& pantalla_;
  std::vector<RangoEnviado> pendientes_;  // of the Z rows that are not there yet
  std::vector<RangoEnviado> conDetalle_;  // whose detail a closing has written
  qint64 fin_ = 0, finP_ = 0;             // the last row that a Z has closed
  bool cotejar_ = false, cotejarP_ = false;
  Cotejo cotejo_, cotejoP_;
  bool quedaban_ = false;  // rows of operations that were not there when the run began
  bool cabecera_ = false;  // psIdZ1 heads the detail of this run
  QHash<QString, ClienteTarjeta> clientes_;
  std::unique_ptr<OperacionesCentral> deUna_, nuevas_;
  std::unique_ptr<Repetida> marca_;  // of a row of operations here
};
