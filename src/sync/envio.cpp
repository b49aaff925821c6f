#include "sync/envio.h"

#include <algorithm>

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "loyalty/cliente_bd.h"
#include "platform/text/numero.h"
#include "sync/envio_interno.h"
#include "sync/updt.h"

namespace {

qint64 entero(const QVariant& v) { return AEntero(Numero(v)); }

}  // namespace

// A closing half done keeps everything here.
bool Envio::leerPaso() {
  Recordset rs;
  if (!p_.poDBAdmin.EjecutarConsulta(p_.poCnnLocal, u"select iCierreCaja from configuracion"_sql, rs)) {
    p_.mensajes.mostrar(QStringLiteral("Error"));
    return false;
  }
  const qint64 paso = entero(rs[0]);
  return paso == 0 || paso == 6;  // the main window tells of a closing half done
}

bool Envio::leerRangos() {
  Recordset rs;
  if (!p_.poDBAdmin.EjecutarConsulta(
          p_.poCnnLocal,
          FormatearSQL(u"select * from CabeceraZ where bflagsincro=0 AND Caja='$'"_sql, {Texto(p_.ses.psCaja)}), rs)) {
    return false;
  }
  for (const auto& f : rs) {
    pendientes_.push_back(
        {entero(f[u"cOperIdIni"]), entero(f[u"cOperIdFin"]), entero(f[u"cOperIdPIni"]), entero(f[u"cOperIdPFin"])});
  }
  if (!p_.poDBAdmin.EjecutarConsulta(
          p_.poCnnLocal, u"select MAX(cOperIdFin) as nFin, MAX(cOperIdPFin) as nFinP from CabeceraZ"_sql, rs)) {
    return false;
  }
  fin_ = entero(rs[u"nFin"]);
  finP_ = entero(rs[u"nFinP"]);
  return LeerDetallesEnviados(p_, conDetalle_);
}

Sql Envio::rangosPendientes(bool paralelas, LiteralSql columna) const {
  std::vector<Sql> piezas;
  for (const RangoEnviado& r : pendientes_) {
    piezas.push_back(FormatearSQL(u"($ > $ AND $ <= $)"_sql,
                                  {columna, paralelas ? r.iniP : r.ini, columna, paralelas ? r.finP : r.fin}));
  }
  return piezas.empty() ? Sql() : u"("_sql + UnirSql(piezas, u" OR "_sql) + u")"_sql;
}

// Rows of moments that the centre knows of this till may stand there already: an earlier run was cut off, an answer was
// lost, or the store was put back from an older copy. Then what it holds for those moments is read once, and marked
// rows of a pending range are looked up there too.
bool Envio::prepararCotejo(bool paralelas) {
  const LiteralSql tabla = paralelas ? u"OperacionParalela"_sql : u"Operacion"_sql;
  const LiteralSql clave = paralelas ? u"cOperCode"_sql : u"cOperID"_sql;
  const Sql cerradas = FormatearSQL(
      u"SELECT COUNT(*) AS nFilas, MIN(dOperFech) AS dDesde, MAX(dOperFech) AS dHasta FROM $ WHERE cOperFlagAbierto "
      "= 0 "
      "AND $ <= $"_sql,
      {tabla, clave, paralelas ? finP_ : fin_});
  Recordset nuevas, marcadas, alla;
  if (!p_.poDBAdmin.EjecutarConsulta(
          p_.poCnnLocal,
          cerradas + (paralelas ? u" AND "_sql + ParalelaPorEnviar()
                                : Sql(u" AND cProdCode <> 0 AND cFlagSincronizacion = '0'"_sql)),
          nuevas)) {
    return false;
  }
  if (!paralelas) quedaban_ = entero(nuevas[u"nFilas"]) > 0;
  const Sql rangos = rangosPendientes(paralelas, clave);
  if (!rangos.vacia() && !p_.poDBAdmin.EjecutarConsulta(
                             p_.poCnnLocal, cerradas + u" AND cFlagSincronizacion = '1' AND "_sql + rangos, marcadas)) {
    return false;
  }
  if (paralelas && entero(nuevas[u"nFilas"]) + entero(marcadas[u"nFilas"]) > 0) {
    if (const auto error = EnTransaccion(p_.poCnnCentral, [this] { return bloquear(); })) {
      p_.registro.RegistrarErrorLog(QStringLiteral("Sincronizar - spr_bloquear_serie: ") + error->descripcion);
      cortado();
      return false;
    }
  }
  QDateTime desde = nuevas[u"dDesde"].toDateTime(), hasta = nuevas[u"dHasta"].toDateTime();
  if (entero(marcadas[u"nFilas"]) == 0) {
    if (!desde.isValid()) return true;
    if (!p_.poDBAdmin.EjecutarConsulta(p_.poCnnCentral,
                                       FormatearSQL(u"SELECT MAX(dOperFech) AS dUltima FROM $ WHERE cCajaCodi='$'"_sql,
                                                    {tabla, Texto(p_.ses.psCaja)}),
                                       alla)) {
      return false;
    }
    const QDateTime ultima = alla[u"dUltima"].toDateTime();
    if (!ultima.isValid() || ultima < desde) return true;
  } else {
    const QDateTime d = marcadas[u"dDesde"].toDateTime(), h = marcadas[u"dHasta"].toDateTime();
    desde = desde.isValid() ? std::min(desde, d) : d;
    hasta = hasta.isValid() ? std::max(hasta, h) : h;
  }
  (paralelas ? cotejarP_ : cotejar_) = true;
  return paralelas ? cotejoP_.leerParalelas(p_, desde, hasta) : cotejo_.leerOperaciones(p_, desde, hasta);
}

// Whether rows are pending whose detail no closing has written.
bool Envio::faltaDetalle() {
  const auto hay = [&](const Sql& sql, LiteralSql clave, bool paralelas) {
    Sql fuera;
    for (const RangoEnviado& r : conDetalle_) {
      fuera += FormatearSQL(u" AND NOT ($ > $ AND $ <= $)"_sql,
                            {clave, paralelas ? r.iniP : r.ini, clave, paralelas ? r.finP : r.fin});
    }
    Recordset rs;
    return !p_.poCnnLocal.consultar(sql + fuera, rs) && entero(rs[0]) > 0;
  };
  return hay(FormatearSQL(u"SELECT COUNT(*) FROM Operacion WHERE cOperFlagAbierto = 0 AND cProdCode <> 0 AND "
                          "cFlagSincronizacion = '0' AND cOperID <= $"_sql,
                          {fin_}),
             u"cOperID"_sql, false) ||
         hay(FormatearSQL(
                 u"SELECT COUNT(*) FROM OperacionParalela WHERE cOperFlagAbierto = 0 AND cOperCodeAnul = 0 AND "
                 "cOperCode <= $ AND $"_sql,
                 {finP_, ParalelaPorEnviar()}),
             u"cOperCode"_sql, true);
}

bool Envio::cabeceraZ1() {
  if (p_.ses.pbSincronizaCierre && !faltaDetalle()) return true;
  Recordset rs;
  Sql laQueFallo;
  const auto error = EnTransaccion(p_.poCnnCentral, [&]() -> Error {
    return p_.poCnnCentral.consultar(
        FormatearSQL(u"exec dbo.spr_insertar_cabecera_z1 '$', -2"_sql, {Texto(p_.ses.psCaja)}), rs);
  });
  if (error) {
    p_.registro.RegistrarErrorLog(QStringLiteral("Sincronizar - spr_insertar_cabecera_z1: ") + error->descripcion);
    cortado();
    return false;
  }
  if (!rs.Eof()) p_.ses.psIdZ1 = LimpiarNulo(rs[u"idZ1"]);
  cabecera_ = true;
  return true;
}

ClienteTarjeta Envio::cliente(const QString& tarjeta, int local) {
  if (tarjeta.isEmpty()) return {};
  const QString clave = tarjeta + u'/' + QString::number(local);
  const auto i = clientes_.constFind(clave);
  if (i != clientes_.constEnd()) return *i;
  // A client database that is away is not tried for every row.
  if (!p_.ses.pbClienteConectado && (p_.ses.pbClienteCaido || !ConectarCliente(p_, true))) return {};
  const ClienteTarjeta c = ClienteDeTarjeta(p_, tarjeta, local);
  clientes_.insert(clave, c);
  return c;
}

std::optional<QSet<QString>> Envio::contabilizados(const Filas& filas) {
  QSet<QString> hallados, series, numeros;
  for (const auto& f : filas) {
    series.insert(LimpiarNulo(f[u"cDocSerie"]));
    numeros.insert(NumeroCentral(f[u"cDocCodigo"]));
  }
  const auto lista = [](const QSet<QString>& textos) {
    std::vector<Sql> piezas;
    for (const QString& t : textos) piezas.push_back(FormatearSQL(u"'$'"_sql, {Texto(t)}));
    return UnirSql(piezas, u", "_sql);
  };
  Recordset rs;
  if (filas.size() == 1) {
    const QString &serie = *series.begin(), &numero = *numeros.begin();
    if (!p_.poDBAdmin.EjecutarConsulta(p_.poCnnCentral,
                                       FormatearSQL(u"SELECT  Count(*) as nroreg   FROM  Cuentacte  WHERE  cSerieDoc = "
                                                    "'$'    AND  cNroDoc  = '$'    AND  cCodCaja = '$' "_sql,
                                                    {Texto(serie), Texto(numero), Texto(p_.ses.psCaja)}),
                                       rs)) {
      return {};
    }
    if (Numero(rs[u"nroreg"]) > 0) hallados.insert(claveDeDocumento(serie, numero));
    return hallados;
  }
  if (p_.poCnnCentral.consultar(
          FormatearSQL(u"SELECT DISTINCT cSerieDoc, cNroDoc FROM Cuentacte WHERE cCodCaja = '$' AND cSerieDoc IN ($) "
                       "AND cNroDoc IN ($)"_sql,
                       {Texto(p_.ses.psCaja), lista(series), lista(numeros)}),
          rs)) {
    return {};
  }
  for (const auto& f : rs) hallados.insert(claveDeDocumento(LimpiarNulo(f[0]), LimpiarNulo(f[1])));
  return hallados;
}

void Envio::yaExiste(const Recordset::Fila& f) {
  p_.registro.RegistrarErrorLog(QStringLiteral("El documento ") +
                                claveDeDocumento(LimpiarNulo(f[u"cDocSerie"]), NumeroCentral(f[u"cDocCodigo"])) +
                                QStringLiteral(" ya existe en la base de datos."));
}

Envio::Error Envio::confirmarAmbas() {
  if (auto error = p_.poCnnCentral.confirmar()) return error;
  return p_.poCnnLocal.confirmar();
}

// Once the commit there has been tried nothing of the batch may go again in this run: what it left is for the
// comparison of the next one.
std::vector<FinFila> Envio::confirmarLote(std::vector<FinFila> fines) {
  if (!confirmarAmbas()) return fines;
  deshacerAmbas();
  cortado();
  return {{Suerte::Termina, {}}};
}

void Envio::deshacerAmbas() {
  for (Conexion* cnn : {&p_.poCnnLocal, &p_.poCnnCentral}) {
    if (cnn->enTransaccion()) (void)cnn->deshacer();
  }
}

void Envio::cortado() {
  pantalla_.porque =
      QStringLiteral("El servidor central dejó de responder. Lo que falta se enviará en la próxima sincronización.");
}

// Neither stops the run.
void Envio::procedimientos() {
  const auto llamar = [&](const Sql& sql) {
    if (const auto error = p_.poCnnCentral.ejecutar(sql)) {
      p_.registro.RegistrarErrorLog(QStringLiteral("Sincronizar - ") + sql.texto(Dialecto::TSql) +
                                    QStringLiteral(": ") + error->descripcion);
    }
  };
  if (cabecera_) llamar(FormatearSQL(u"dbo.spr_agrupar_z1 $"_sql, {Cifras(p_.ses.psIdZ1)}));
  llamar(FormatearSQL(u"dbo.spr_inserta_sincronizacion '$'"_sql, {Texto(p_.ses.psCaja)}));
}

FinPasada Envio::todo() {
  pantalla_.InsertaLinea(QStringLiteral("Sincronizando Operaciones"));
  if (!leerPaso() || !leerRangos()) return FinPasada::Mal;
  if (const auto error = AsentarCabecerasZ1(p_)) {
    p_.registro.RegistrarErrorLog(QStringLiteral("Sincronizar - TCABECERAZ1: ") + error->descripcion);
    cortado();
    return FinPasada::Mal;
  }
  if (!prepararCotejo(false) || !prepararCotejo(true) || !cabeceraZ1()) return FinPasada::Mal;
  FinPasada fin = operaciones();
  if (fin != FinPasada::Bien) return fin;
  pantalla_.AumentaBarra(15);
  pantalla_.InsertaLinea(QStringLiteral("Sincronizando Operaciones Paralelas"));
  fin = paralelas();
  if (fin == FinPasada::Bien) fin = estados();
  if (fin != FinPasada::Bien) return fin;
  pantalla_.InsertaLinea(QStringLiteral("Sincronizando los Z"));
  (void)enviarZ();  // what stays pending goes with the next run
  pantalla_.AumentaBarra(15);
  pantalla_.InsertaLinea(QStringLiteral("Registrando procesamiento de movimientos de ventas"));
  procedimientos();
  return FinPasada::Bien;
}

FinPasada EnviarOperaciones(Puesto& p, FrmUpdt& pantalla) {
  const FinPasada fin = Envio(p, pantalla).todo();
  DesconectarCliente(p);
  return fin;
}
