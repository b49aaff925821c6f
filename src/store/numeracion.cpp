#include "store/numeracion.h"

#include <QFile>

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/io/archivo.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

// The row that keeps the numbers of a type.
TipoDocumento filaConfig(TipoDocumento tipo) { return EsFiscal(tipo) ? TipoDocumento::Boleta : tipo; }

QString serieDeFabrica(const Puesto& p, TipoDocumento tipo) { return SerieInicial(tipo, p.ses.psCaja); }

// Runs the change of a type's row. A row that is missing is made with what the change would have left in it.
bool cambiarOCrear(Puesto& p, TipoDocumento tipo, const Sql& cambio, qint64 codigo, const NumeroDocumento& n,
                   const QString& usuario) {
  qint64 filas = 0;
  if (!p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, cambio, true, &filas)) return false;
  if (filas > 0) return true;
  return p.poDBAdmin.EjecutarSentencia(
      p.poCnnLocal,
      FormatearSQL(
          u"INSERT INTO Config_Documento (cTipoDoc,cOperCode,nDocCodigo,cSerieDoc,cUserDesc,dUltAct,observacion) "
          u" VALUES ('$',$, $, '$','$','$','Primer Registro') "_sql,
          {Texto(Codigo(tipo)), codigo, n.numero, Texto(n.serie), Texto(usuario), p.reloj.today().startOfDay()}),
      true);
}

// A single figure of a query, 0 for Null and for no row.
bool consultarCifra(Puesto& p, Conexion& cnn, const Sql& sql, QStringView campo, qint64& cifra) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(cnn, sql, rs)) return false;
  cifra = AEntero(Numero(rs[campo]));
  return true;
}

// The highest number that the central database has seen of this desk; 0 when it is away or knows none.
qint64 maximoCentral(Puesto& p) {
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, false, clsDBAdmin::Espera::Venta)) return 0;
  qint64 maximo = 0;
  const bool bien = consultarCifra(
      p, central,
      FormatearSQL(u"select isnull(max(cast(NroDoc as int)),0) as maximo from venta01  WHERE cCodCaja='$'"
                   " AND TipoDoc in ($)"_sql,
                   {Texto(p.ses.psCaja), Codigos({TipoDocumento::Factura, TipoDocumento::Boleta})}),
      u"maximo", maximo);
  p.poDBAdmin.CerrarBD(central);
  return bien ? maximo : 0;
}

void dejarLog(Puesto& p, const QString& nombre, qint64 viejo, qint64 nuevo) {
  const QString linea = QStringLiteral("Codigo generado %1\rNuevo Codigo %2\r%3\r\n")
                            .arg(viejo)
                            .arg(nuevo)
                            .arg(FormatearFecha(p.reloj.now(), u"dd/mm/yyyy hh:nn:ss"));
  (void)EscribirBytes(p.rutas.enTemp(nombre), AUnByte(linea));  // the box tells the same
}

// The highest figure of a column in a table and in its history, 0 for none.
bool consultarMaximo(Puesto& p, LiteralSql columna, bool paralela, const Sql& condicion, qint64& maximo) {
  maximo = 0;
  for (const LiteralSql tabla : {paralela ? u"OperacionParalela"_sql : u"Operacion"_sql,
                                 paralela ? u"OperacionParalela_Historico"_sql : u"Operacion_Historico"_sql}) {
    qint64 cifra = 0;
    if (!consultarCifra(p, p.poCnnLocal,
                        FormatearSQL(u"SELECT MAX($) AS maximo FROM $"_sql, {columna, tabla}) + condicion, u"maximo",
                        cifra)) {
      return false;
    }
    maximo = std::max(maximo, cifra);
  }
  return true;
}

// What the two repairs at start differ in.
struct Reparacion {
  LiteralSql tabla;
  bool paralela;
};

// The number in use here for a series and its document type; of several rows the one with the highest number. A desk
// that has never sold anything has none: its first sale is checked by itself. One that has was put back from a copy
// older than the first document of the series.
bool numeroLocal(Puesto& p, const QString& serie, qint64& numero, QString& tipo) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(u"select nDocCodigo, cTipoDoc from config_documento where cSerieDoc='$'"_sql, {Texto(serie)}),
          rs)) {
    return false;
  }
  numero = 0;
  for (const auto& fila : rs) {
    const qint64 uno = AEntero(Numero(fila[u"nDocCodigo"]));
    if (uno < numero || (uno == numero && !tipo.isEmpty())) continue;
    numero = uno;
    tipo = LimpiarNulo(fila[u"cTipoDoc"]);
  }
  if (numero > 0 || rs.RecordCount() == 0) return numero > 0;
  qint64 ventas = 0, paralelas = 0;
  return consultarMaximo(p, u"cOperCode"_sql, false, {}, ventas) &&
         consultarMaximo(p, u"cOperCode"_sql, true, {}, paralelas) && ventas + paralelas > 0;
}

bool codigoDeReparacion(Puesto& p, const Reparacion& r, const QString& serie, qint64& codigo) {
  if (!r.paralela) {
    return consultarCifra(p, p.poCnnCentral,
                          FormatearSQL(u"SELECT MAX(cOperCode) as ncOperCode From operacion where cCajaCodi='$'"
                                       " and CDocSerie = '$'"_sql,
                                       {Texto(p.ses.psCaja), Texto(serie)}),
                          u"ncOperCode", codigo);
  }
  if (!consultarCifra(p, p.poCnnLocal, u"SELECT MAX(cOperCode) + 1 as ncOperCode From operacionparalela "_sql,
                      u"ncOperCode", codigo)) {
    return false;
  }
  if (codigo == 0) codigo = 1;
  return true;
}

// The marker row: the MAX queries see the number, no report of the day does.
Sql filaMarca(const Puesto& p, const Reparacion& r, qint64 codigo, qint64 numero, const QString& serie,
              const QString& tipo) {
  const QString ahora = FormatearFecha(p.reloj.now(), u"dd/mm/yyyy hh:nn");
  if (r.paralela) {
    return FormatearSQL(u"INSERT INTO OPERACIONPARALELA (cOperCode,cOperTipo,dOperFech,"
                        "cEstado,cCajaCodi,cFlagSincronizacion,cTurnoCodi,cUserDesc,cOperFlagAbierto,"
                        "cDoccodigo,cdocSerie, cDocTipo) "
                        "VALUES ($,'0','$','0','$','0','01','ROVEL','0',$,'$','$')"_sql,
                        {codigo, Texto(ahora), Texto(p.ses.psCaja), numero, Texto(serie), Texto(tipo)});
  }
  return FormatearSQL(
      u"INSERT INTO OPERACION (cOperCode,cUserDesc,dOperFech,"
      "cOperFlagAnula,cOperCodeAnula, cOperFlagAbierto,"
      "cCajaCodi,cFlagSincronizacion,cAlmaCode,cDocCodigo,cDocSerie,cDocTipo)"
      "VALUES ($,'rovel','$',0,0,0,'$','0','$',$,'$','$')"_sql,
      {codigo, Texto(ahora), Texto(p.ses.psCaja), Texto(p.ses.psAlmacen), numero, Texto(serie), Texto(tipo)});
}

// A series that is behind gets its marker first: without one the next sale would take the number back again.
void repararSerie(Puesto& p, const Reparacion& r, const QString& serie, qint64 central) {
  qint64 local = 0, codigo = 0;
  QString tipo;
  if (!numeroLocal(p, serie, local, tipo) || central <= local) return;
  if (!codigoDeReparacion(p, r, serie, codigo)) return;
  if (!p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, filaMarca(p, r, codigo, central, serie, tipo), true)) return;
  // Without it the marker alone corrects the next number, with a box.
  (void)p.poDBAdmin.EjecutarSentencia(
      p.poCnnLocal,
      FormatearSQL(u"UPDATE CONFIG_DOCUMENTO set copercode='$', ndoccodigo= '$' where cseriedoc='$'"_sql,
                   {codigo, central, Texto(serie)}),
      true);
}

bool reparar(Puesto& p, const Reparacion& r) {
  if (!p.poDBAdmin.AbrirBD(p.poCnnCentral, p.ses.psConexionCentral)) return false;
  Recordset series;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnCentral,
          FormatearSQL(u"select CDocSerie, MAX(cDoccodigo) as nDoccodigo From $ where cCajaCodi='$'"
                       " and ltrim(rtrim(isnull(CDocSerie,''))) <> '' group by CDocSerie"_sql,
                       {r.tabla, Texto(p.ses.psCaja)}),
          series)) {
    return false;
  }
  for (const auto& fila : series) {
    repararSerie(p, r, LimpiarNulo(fila[u"CDocSerie"]), AEntero(Numero(fila[u"nDoccodigo"])));
  }
  return true;
}

}  // namespace

QString SerieInicial(TipoDocumento tipo, const QString& caja) {
  // clang-format off
  const struct { TipoDocumento tipo; QStringView prefijo; } kPrefijos[] = {
      {TipoDocumento::OC, u"OC"},     {TipoDocumento::NC, u"NC"},     {TipoDocumento::PADE, u"PA"},
      {TipoDocumento::PADV, u"PV"},   {TipoDocumento::LIQPAD, u"LQ"},
  };
  // clang-format on
  if (tipo == TipoDocumento::Factura) return QStringLiteral("F01");
  if (tipo == TipoDocumento::Boleta) return u'0' + Derecha(caja, 2);
  QString numero = caja;
  while (numero.size() > 1 && numero.startsWith(u'0')) numero.remove(0, 1);
  for (const auto& s : kPrefijos) {
    if (tipo == s.tipo) return s.prefijo.toString() + numero;
  }
  return {};
}

bool CodigoOperacion(Puesto& p, bool paralela, qint64& codigo) {
  if (!consultarMaximo(p, u"cOperCode"_sql, paralela, {}, codigo)) return false;
  ++codigo;
  return true;
}

bool SerieDeBoletas(Puesto& p, QString& serie) {
  serie = p.ses.psSerieBoleta;
  if (!serie.isEmpty()) return true;
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                    FormatearSQL(u"SELECT cSerieDoc FROM Config_Documento WHERE cTipoDoc='$'"_sql,
                                                 {Texto(Codigo(TipoDocumento::Boleta))}),
                                    rs)) {
    return false;
  }
  serie = LimpiarNulo(rs[u"cSerieDoc"]);
  if (serie.isEmpty()) serie = serieDeFabrica(p, TipoDocumento::Boleta);
  return true;
}

bool LeerNumeroDocumento(Puesto& p, TipoDocumento tipo, NumeroDocumento& n) {
  Recordset rs;
  const TipoDocumento fila = filaConfig(tipo);
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal, FormatearSQL(u"SELECT  * FROM Config_Documento WHERE cTipoDoc='$'"_sql, {Texto(Codigo(fila))}),
          rs)) {
    return false;
  }
  NumeroDocumento nuevo;
  nuevo.numero = AEntero(Numero(rs[u"nDocCodigo"])) + 1;
  nuevo.serie = LimpiarNulo(rs[u"cSerieDoc"]);
  if (nuevo.serie.isEmpty()) nuevo.serie = serieDeFabrica(p, fila);
  if (tipo == TipoDocumento::Factura) p.ses.psSerieFactura = nuevo.serie;
  if (tipo == TipoDocumento::Boleta) p.ses.psSerieBoleta = nuevo.serie;
  n = nuevo;
  return true;
}

bool VerificarNumeroDocumento(Puesto& p, TipoDocumento tipo, const NombreLog& log, NumeroDocumento& n) {
  const bool fiscal = EsFiscal(tipo);
  const qint64 central = fiscal ? maximoCentral(p) : 0;
  qint64 maximo = 0;
  const Sql suyos =
      fiscal ? FormatearSQL(u" WHERE cDocTipo IN ($)"_sql, {Codigos({TipoDocumento::Factura, TipoDocumento::Boleta})})
             : FormatearSQL(u" WHERE cDocTipo = '$'"_sql, {Texto(Codigo(tipo))});
  if (!consultarMaximo(p, u"cDocCodigo"_sql, !fiscal, suyos, maximo)) return false;
  maximo = std::max(maximo, central);
  if (maximo <= 0 || maximo + 1 == n.numero) return true;
  const qint64 viejo = n.numero;
  n.numero = maximo + 1;
  AvisarNumeroCorregido(p, tipo, central != 0 ? log.conCentral : log.sinCentral, viejo, n.numero);
  return true;
}

void AvisarNumeroCorregido(Puesto& p, TipoDocumento tipo, const QString& log, qint64 viejo, qint64 nuevo) {
  dejarLog(p, log + Codigo(tipo) + QString::number(viejo) + QStringLiteral(".log"), viejo, nuevo);
  p.mensajes.mostrar(QStringLiteral("Ocurrio un error en la numeración, se asignará el ") + QString::number(nuevo) +
                     QStringLiteral(" al documento "));
}

bool GuardarNumeroDocumento(Puesto& p, TipoDocumento tipo, const NumeroDocumento& n) {
  const TipoDocumento fila = filaConfig(tipo);
  return cambiarOCrear(p, fila,
                       FormatearSQL(u"UPDATE Config_Documento  SET cSerieDoc='$', nDocCodigo=$  WHERE cTipodoc='$'"_sql,
                                    {Texto(n.serie), n.numero, Texto(Codigo(fila))}),
                       0, n, QString());
}

bool ReservarDocumento(Puesto& p, TipoDocumento tipo, const NombreLog& log, NumeroDocumento& n) {
  NumeroDocumento nuevo;
  if (!LeerNumeroDocumento(p, tipo, nuevo) || !VerificarNumeroDocumento(p, tipo, log, nuevo) ||
      !GuardarNumeroDocumento(p, tipo, nuevo)) {
    return false;
  }
  n = nuevo;
  return true;
}

Sql SentenciaUltimaOperacion(const Puesto& p, TipoDocumento tipo, qint64 codigo, qint64 numero) {
  const Sql documento = EsFiscal(tipo) ? Sql() : FormatearSQL(u" nDocCodigo=$, "_sql, {numero});
  return FormatearSQL(u"UPDATE Config_Documento  SET cOperCode=$,$ cUserDesc='$'  WHERE cTipodoc='$'"_sql,
                      {codigo, documento, Texto(p.ses.psUsuario), Texto(Codigo(tipo))});
}

bool GuardarUltimaOperacion(Puesto& p, TipoDocumento tipo, qint64 codigo, qint64 numero) {
  return cambiarOCrear(p, tipo, SentenciaUltimaOperacion(p, tipo, codigo, numero), codigo,
                       {EsFiscal(tipo) ? 0 : numero, serieDeFabrica(p, tipo)}, p.ses.psUsuario);
}

bool RepararNumeracion(Puesto& p) { return reparar(p, {u"operacion"_sql, false}); }

namespace {

// Documents that are open here, as they were last sent, and no more at the centre: the store was put back from a copy
// older than what settled or voided them.
void seguirEstados(Puesto& p) {
  Recordset abiertas, alla;
  if (p.poCnnLocal.consultar(
          u"SELECT o.cOperCode FROM OperacionParalela o INNER JOIN ParalelaEnviada e ON e.cOperCode = "
          "o.cOperCode WHERE o.cEstado = '1' AND e.cEstado = '1' AND o.cFlagSincronizacion = '1' AND "
          "o.cOperCodeRela = e.cOperCodeRela AND o.cOperCodeAnul = 0"_sql,
          abiertas) ||
      abiertas.Eof()) {
    return;
  }
  std::vector<Sql> codigos;
  for (const auto& f : abiertas) codigos.push_back(FormatearSQL(u"$"_sql, {AEntero(Numero(f[0]))}));
  if (p.poCnnCentral.consultar(
          FormatearSQL(
              u"SELECT cOperCode, cEstado, cOperCodeRela, cOperCodeAnul FROM operacionparalela WHERE cCajaCodi = '$' "
              "AND cEstado <> '1' AND cOperCode IN ($)"_sql,
              {Texto(p.ses.psCaja), UnirSql(codigos, u", "_sql)}),
          alla)) {
    return;
  }
  for (const auto& f : alla) {
    std::vector<Sql> cambios;
    for (const LiteralSql tabla : {u"OperacionParalela"_sql, u"ParalelaEnviada"_sql}) {
      cambios.push_back(FormatearSQL(
          u"UPDATE $ SET cEstado = '$', cOperCodeRela = $, cOperCodeAnul = $ WHERE cOperCode = $"_sql,
          {tabla, Texto(LimpiarNulo(f[1])), AEntero(Numero(f[2])), AEntero(Numero(f[3])), AEntero(Numero(f[0]))}));
    }
    (void)EjecutarJuntas(p.poCnnLocal, cambios);  // the next start tries again
  }
}

}  // namespace

void RepararCodigos(Puesto& p) {
  seguirEstados(p);
  const auto central = [&p](const Sql& tabla, qint64& maximo) {
    Recordset rs;
    if (!p.poCnnCentral.abierta() ||
        p.poCnnCentral.consultar(u"SELECT MAX("_sql + tabla + FormatearSQL(u"='$'"_sql, {Texto(p.ses.psCaja)}), rs)) {
      return false;
    }
    maximo = AEntero(Numero(rs[0]));
    return true;
  };
  const QString ahora = FormatearFecha(p.reloj.now(), u"dd/mm/yyyy hh:nn");
  for (const bool paralela : {false, true}) {
    qint64 alla = 0, aqui = 0;
    if (!central(paralela ? u"cOperCode) FROM operacionparalela WHERE cCajaCodi"_sql
                          : u"cOperCode) FROM operacion WHERE cCajaCodi"_sql,
                 alla) ||
        !consultarMaximo(p, u"cOperCode"_sql, paralela, {}, aqui) || aqui >= alla) {
      continue;
    }
    (void)p.poDBAdmin.EjecutarSentencia(
        p.poCnnLocal,
        paralela ? FormatearSQL(u"INSERT INTO OPERACIONPARALELA (cOperCode,cOperTipo,dOperFech,cEstado,cCajaCodi,"
                                "cFlagSincronizacion,cTurnoCodi,cUserDesc,cOperFlagAbierto) "
                                "VALUES ($,'0','$','0','$','0','01','ROVEL','0')"_sql,
                                {alla, Texto(ahora), Texto(p.ses.psCaja)})
                 : FormatearSQL(u"INSERT INTO OPERACION (cOperCode,cUserDesc,dOperFech,cOperFlagAnula,cOperCodeAnula,"
                                "cOperFlagAbierto,cCajaCodi,cFlagSincronizacion,cAlmaCode) "
                                "VALUES ($,'rovel','$',0,0,0,'$','0','$')"_sql,
                                {alla, Texto(ahora), Texto(p.ses.psCaja), Texto(p.ses.psAlmacen)}),
        true);
  }
  qint64 alla = 0, aqui = 0;
  if (!central(u"IdZ) FROM CabeceraZ WHERE Caja"_sql, alla) ||
      !consultarCifra(p, p.poCnnLocal, u"SELECT MAX(IdZ) as MAXIMO FROM CabeceraZ"_sql, u"MAXIMO", aqui) ||
      aqui >= alla) {
    return;
  }
  // A range that no report and no sending takes for one of theirs.
  (void)p.poDBAdmin.EjecutarSentencia(
      p.poCnnLocal,
      FormatearSQL(
          u"INSERT INTO CabeceraZ (IdZ, Caja, cOperIdIni, cOperIdFin, cOperIdPIni, cOperIdPFin, bFlagSincro, obs) "
          "VALUES ($, '$', -1, -1, -1, -1, 1, 'Numeración reparada')"_sql,
          {alla, Texto(p.ses.psCaja)}),
      true);
}

bool RepararNumeracionParalela(Puesto& p) { return reparar(p, {u"operacionparalela"_sql, true}); }
