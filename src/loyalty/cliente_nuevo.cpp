#include "loyalty/cliente_nuevo.h"

#include <functional>

#include "foundation/acto_doble.h"
#include "foundation/mantenimiento.h"
#include "foundation/puesto.h"
#include "loyalty/cliente_bd.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

int entero(const QVariant& v) { return static_cast<int>(AEntero(Numero(v))); }

bool consultar(Puesto& p, const Sql& sql, Recordset& rs) {
  return p.poDBAdmin.EjecutarConsulta(p.poCnnCliente, sql, rs);
}

// With the client database open; its box has told when it could not be opened.
void conCliente(Puesto& p, const std::function<void()>& leer) {
  if (!ConectarCliente(p, true)) return;
  leer();
  DesconectarCliente(p);
}

void leerLugares(Puesto& p, const Sql& condicion, EleccionLugar& e) {
  e = {};
  Recordset rs;
  if (!consultar(p,
                 u"SELECT * FROM Localidad WHERE "_sql + condicion +
                     FormatearSQL(u" UNION SELECT $, $, $, 'OTRO' ORDER BY sLocaName"_sql,
                                  {kLugarOtro, kLugarOtro, kLugarOtro}),
                 rs)) {
    return;
  }
  for (const auto& f : rs) {
    // Of a row's three codes the last one that is set is its own.
    int codigo = 0;
    for (const int c : {entero(f[u"cDepaCode"]), entero(f[u"cProvCode"]), entero(f[u"cDistCode"])})
      codigo = c != 0 ? c : codigo;
    e.lugares.push_back({codigo, LimpiarNulo(f[u"sLocaName"])});
  }
}

void leerProvincias(Puesto& p, ClienteNuevo& v) {
  leerLugares(p,
              FormatearSQL(u"RTRIM(LTRIM(cDepaCode)) = RTRIM(LTRIM('$')) AND cProvCode <> 0 AND cDistCode = 0 "_sql,
                           {v.departamento.codigo}),
              v.provincia);
}

void leerDistritos(Puesto& p, ClienteNuevo& v) {
  leerLugares(p,
              FormatearSQL(u"RTRIM(LTRIM(cDepaCode)) = RTRIM(LTRIM('$')) AND RTRIM(LTRIM(cProvCode)) = "
                           "RTRIM(LTRIM('$')) AND cDistCode <> 0 "_sql,
                           {v.departamento.codigo, v.provincia.codigo}),
              v.distrito);
}

void leerLocales(Puesto& p, ClienteNuevo& v) {
  Recordset rs;
  if (consultar(p, u"SELECT idlocal, dsclocal FROM local"_sql, rs)) {
    for (const auto& f : rs) v.locales.push_back({entero(f[u"idlocal"]), LimpiarNulo(f[u"dsclocal"])});
  }
  if (consultar(p, u"SELECT IdLocal FROM local WHERE Activo=1"_sql, rs) && !rs.Eof()) v.dcbLocal = entero(rs[0]);
}

QString tarjetaDe(qint64 codigo) { return Ceros(QString::number(codigo), 8); }

QString hoy(const Puesto& p) { return FormatearFecha(p.reloj.now(), u"dd/mm/yyyy"); }

std::optional<QDate> nacimiento(const ClienteNuevo& v) {
  const auto fecha = v.chkFNacimiento ? LeerFecha(v.dtpFNacimiento) : std::nullopt;
  return fecha ? std::optional(fecha->date()) : std::nullopt;
}

}  // namespace

void CargarClienteNuevo(Puesto& p, ClienteNuevo& v) {
  CambiarNacimiento(p, v, true);
  conCliente(p, [&] {
    leerLocales(p, v);
    leerLugares(p, u"cProvCode = 0 AND cDistCode = 0 "_sql, v.departamento);
    Recordset rs;
    if (consultar(p, FormatearSQL(u"SELECT MAX(cClieCode) + 1  AS nume FROM Cliente WHERE IdLocal=$"_sql, {v.dcbLocal}),
                  rs)) {
      v.txtTarjeta = Ceros(LimpiarNulo(rs[0]), 8);
    }
  });
}

void ElegirDepartamento(Puesto& p, ClienteNuevo& v, int codigo) {
  v.departamento.codigo = codigo;
  if (!v.departamento.esOtro()) v.departamento.otro.clear();
  v.provincia = v.distrito = {};
  conCliente(p, [&] { leerProvincias(p, v); });
}

void ElegirProvincia(Puesto& p, ClienteNuevo& v, int codigo) {
  v.provincia.codigo = codigo;
  if (!v.provincia.esOtro()) v.provincia.otro.clear();
  v.distrito = {};
  conCliente(p, [&] { leerDistritos(p, v); });
}

void ElegirDistrito(ClienteNuevo& v, int codigo) {
  v.distrito.codigo = codigo;
  if (!v.distrito.esOtro()) v.distrito.otro.clear();
}

void CambiarNacimiento(const Puesto& p, ClienteNuevo& v, bool dado) {
  v.chkFNacimiento = dado;
  v.dtpFNacimiento = hoy(p);
}

bool ValidarCliente(Puesto& p, ClienteNuevo& v, QString& campoMal) {
  const auto falta = [](const QString& texto) { return Recortar(texto).isEmpty(); };
  if (!falta(v.txtTarjeta)) v.txtTarjeta = Rellenar(Recortar(v.txtTarjeta), 8, u'0');
  const auto fecha = nacimiento(v);
  return Comprobar(
      p,
      {{falta(v.txtTarjeta), u"txtTarjeta", u"Ingresar Nro. de Tarjeta"},
       {falta(v.txtApellidos), u"txtApellidos", u"Ingresar Apellidos"},
       {falta(v.txtNombres), u"txtNombres", u"Ingresar Nombres"},
       {v.departamento.codigo == 0, u"dcbDepartamento", u"Seleccionar Departamento"},
       {v.provincia.codigo == 0, u"dcbProvincia", u"Seleccionar Provincia"},
       {v.distrito.codigo == 0, u"dcbDistrito", u"Seleccionar Distrito"},
       {v.chkFNacimiento && !fecha, u"dtpFNacimiento", u"La fecha debe tener el formato dd/mm/yyyy"},
       {fecha && *fecha > p.reloj.today(), u"dtpFNacimiento", u"Fecha de Nacimiento no puede ser mayor al día de hoy"},
       {v.dcbLocal < 0, u"dcbLocal", u"Seleccionar Local"}},
      campoMal);
}

namespace {

// Finds the names that may be the same once case, accents and the number of blanks are left out; which of them are is
// told by comparing.
Sql parecido(const QString& texto) {
  QString patron = texto.simplified();
  for (QChar& c : patron) {
    const bool letraLlana = c.unicode() < 0x80 && c.isLetter() && !QStringView(u"AEIOUaeiou").contains(c);
    if (!letraLlana && !c.isDigit()) c = c == u' ' ? u'%' : u'_';
  }
  return FormatearSQL(u" LIKE '$'"_sql, {Texto(patron)});
}

// What one save is made of.
struct Alta {
  Puesto& p;
  const ClienteNuevo& v;
  qint64 codigo = 0;
  bool existe = false;

  QString tarjeta() const { return tarjetaDe(codigo); }
};

// One of the same surnames and names, at any site.
std::optional<ErrorBD> buscarHomonimo(Alta& a) {
  Recordset rs;
  const auto error =
      a.p.poCnnCliente.consultar(u"SELECT sClieApel, sClieName FROM Cliente WHERE sClieApel"_sql +
                                     parecido(a.v.txtApellidos) + u" AND sClieName"_sql + parecido(a.v.txtNombres),
                                 rs);
  const auto igual = [](const QVariant& v, const QString& texto) {
    return CompararEspanol(LimpiarNulo(v).simplified(), texto.simplified()) == 0;
  };
  for (const auto& f : rs) a.existe = a.existe || (igual(f[0], a.v.txtApellidos) && igual(f[1], a.v.txtNombres));
  if (error) return error;
  if (!a.existe) return {};
  return ErrorBD{kErrorSentencia, 0, QStringLiteral("El Cliente ya existe")};
}

// The next code of the site whose card nobody has. The site's row is held meanwhile, so that another desk waits.
std::optional<ErrorBD> siguienteCodigo(Alta& a) {
  Conexion& cnn = a.p.poCnnCliente;
  const int local = a.v.dcbLocal;
  auto error = cnn.ejecutar(FormatearSQL(u"UPDATE local SET Activo = Activo WHERE idlocal = $"_sql, {local}));
  Recordset rs;
  if (!error) {
    error =
        cnn.consultar(FormatearSQL(u"SELECT MAX(cClieCode) AS Codigo FROM Cliente where idLocal = $"_sql, {local}), rs);
  }
  a.codigo = AEntero(Numero(rs[0]));
  for (bool ocupada = true; !error && ocupada;) {
    ++a.codigo;
    error = cnn.consultar(FormatearSQL(u"SELECT nTarjNumb FROM Tarjeta WHERE nTarjNumb = '$' AND IdLocal = $"_sql,
                                       {Texto(a.tarjeta()), local}),
                          rs);
    ocupada = !rs.Eof();
  }
  return error;
}

Valor lugarTexto(const EleccionLugar& e) { return Texto(e.esOtro() ? Recortar(e.otro) : QString()); }

// The customer's row; `fecha` makes a date of the database's dialect, `resto` are columns that only one of them has.
Sql filaCliente(const Alta& a, const std::function<Sql(const QDateTime&)>& fecha) {
  const ClienteNuevo& v = a.v;
  const auto nacio = nacimiento(v);
  return FormatearSQL(
      u"INSERT INTO Cliente (cClieCode, sClieApel, sClieName, sClieAddr, cDepaCode, cProvCode, cDistCode, sDepaDesc, "
      "sProvDesc, sDistDesc, sClieTelf, sClieMail, dNacmDate, dUltTDate, cTranCode, sClieRout, iTipo, IdLocal, "
      "nPuntCant, bFlagSincro) VALUES ($, '$', '$', '$', $, $, $, '$', '$', '$', '$', '$', $, $, 1, '$', $, $, "
      "0, 0)"_sql,
      {a.codigo, Texto(v.txtApellidos), Texto(v.txtNombres), Texto(v.txtDireccion), v.departamento.codigo,
       v.provincia.codigo, v.distrito.codigo, lugarTexto(v.departamento), lugarTexto(v.provincia),
       lugarTexto(v.distrito), Texto(v.txtTelefono), Texto(v.txtEMail),
       nacio ? Valor(fecha(nacio->startOfDay())) : Valor(), fecha(a.p.reloj.today().startOfDay()), Texto(v.foto),
       v.cboTip + 1, v.dcbLocal});
}

// It expires a year after its issue, less a day.
Sql filaTarjeta(const Alta& a, const std::function<Sql(const QDateTime&)>& fecha) {
  const QDate emision = a.p.reloj.today();
  return FormatearSQL(
      u"INSERT INTO Tarjeta (cClieCode, nTarjNumb, cTarjActi, dEmisDate, dCaduDate, sUserDesc, "
      "IdLocal, dUltOper, bFlagSincro) VALUES ($, '$', 1, $, $, '$', $, $, 0)"_sql,
      {a.codigo, Texto(a.tarjeta()), fecha(emision.startOfDay()), fecha(emision.addYears(1).addDays(-1).startOfDay()),
       Texto(a.p.ses.psUsuario), a.v.dcbLocal, fecha(a.p.reloj.now())});
}

// The store's copies take the place of what an earlier pull may have left under the same keys.
std::vector<Sql> filasDelPuesto(const Alta& a) {
  const auto fecha = [](const QDateTime& d) { return FormatearSQL(u"'$'"_sql, {d}); };
  return {FormatearSQL(u"DELETE FROM Cliente WHERE cClieCode = $ AND IdLocal = $"_sql, {a.codigo, a.v.dcbLocal}),
          filaCliente(a, fecha),
          FormatearSQL(u"DELETE FROM Tarjeta WHERE nTarjNumb = '$' AND IdLocal = $"_sql,
                       {Texto(a.tarjeta()), a.v.dcbLocal}),
          filaTarjeta(a, fecha)};
}

std::vector<Sql> filasDelServidor(const Alta& a) {
  const auto fecha = [](const QDateTime& d) {
    return FormatearSQL(u"convert(datetime,'$',120)"_sql, {Texto(FormatearFecha(d, u"yyyy-mm-dd hh:nn:ss"))});
  };
  return {filaCliente(a, fecha), filaTarjeta(a, fecha)};
}

ResultadoActo darDeAlta(Alta& a) {
  ActoDoble acto;
  acto.servidor = ServidorActo::Cliente;
  acto.orden = ActoDoble::ServidorPrimero;
  acto.preparar = [&a](ActoDoble& hecho) -> std::optional<ErrorBD> {
    if (auto error = buscarHomonimo(a)) return error;
    if (auto error = siguienteCodigo(a)) return error;
    hecho.nombre = QStringLiteral("cliente %1 %2").arg(a.v.dcbLocal).arg(a.codigo);
    hecho.enServidor = filasDelServidor(a);
    hecho.enLocal = filasDelPuesto(a);
    return {};
  };
  return EjecutarActo(a.p, acto);
}

}  // namespace

std::optional<TarjetaElegida> GrabarCliente(Puesto& p, const ClienteNuevo& v) {
  // A server that keeps no row of the site to lock may refuse the key that another desk took meanwhile.
  constexpr int kIntentos = 5;
  Alta a{p, v};
  ResultadoActo r;
  for (int n = 0; n < kIntentos; ++n) {
    r = darDeAlta(a);
    if (r.fin != FinActo::Nada || !r.error.claveDuplicada()) break;
  }
  DesconectarCliente(p);
  if (r.fin == FinActo::Nada || r.fin == FinActo::EnDuda) {
    p.mensajes.mostrar(r.fin == FinActo::EnDuda
                           ? QStringLiteral("La base de clientes dejó de responder al guardar. Busque al cliente antes "
                                            "de registrarlo otra vez.")
                           : r.error.descripcion);
    return {};
  }
  if (Recortar(v.txtTarjeta) != a.tarjeta()) {
    p.mensajes.mostrar(QStringLiteral("Nro. de Tarjeta ya se encuentra registrado en la Base de datos\r Se asignará "
                                      "el número ") +
                       a.tarjeta());
  }
  return TarjetaElegida{a.tarjeta(), v.dcbLocal};
}
