#include "sync/reproceso.h"

#include <QSet>
#include <map>

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "loyalty/cliente_bd.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "sync/fila_central.h"
#include "sync/pasada.h"
#include "sync/updt.h"

namespace {

using Error = std::optional<ErrorBD>;

qint64 entero(const QVariant& v) { return AEntero(Numero(v)); }

class Reproceso {
 public:
  Reproceso(Puesto& p, FrmUpdt& pantalla, QDate dia) : p_(p), pantalla_(pantalla), dia_(dia) {}

  void hacer() {
    if (!leer() || !sePuede()) return;
    const auto error = enviar();
    for (Conexion* cnn : {&p_.poCnnCentral, &p_.poCnnLocal}) {
      if (cnn->enTransaccion()) (void)cnn->deshacer();
    }
    DesconectarCliente(p_);
    if (error) {
      p_.registro.RegistrarErrorLog(QStringLiteral("SincronizarFecha: ") + error->descripcion);
      p_.mensajes.mostrar(QStringLiteral("No se pudo reprocesar el día; en el servidor queda como estaba: ") +
                          error->descripcion);
      return;
    }
    p_.registro.RegistrarErrorLog(
        QStringLiteral("Reproceso. Caja:%1;Fecha:%2;Operaciones:%3;Paralelas:%4;Sin enviar:%5;")
            .arg(p_.ses.psCaja, fecha())
            .arg(operacionesEnviadas_.size())
            .arg(paralelasEnviadas_.size())
            .arg(filas_ - operacionesEnviadas_.size() - paralelasEnviadas_.size()));
    p_.mensajes.mostrar(QStringLiteral("Proceso Terminado. Caja:%1;Fecha:%2;").arg(p_.ses.psCaja, fecha()));
  }

 private:
  QString fecha() const { return FormatearFecha(dia_.startOfDay(), u"dd/mm/yyyy"); }
  Sql delDia() const { return FormatearSQL(u" dOperFech >= $ AND dOperFech < $"_sql, {dia_, dia_.addDays(1)}); }

  // The rows of the day of both tables; one that stands in both counts once.
  bool leerDos(LiteralSql viva, LiteralSql historia, const Sql& condicion, const Sql& condicionHistoria,
               QStringView clave, Recordset& rs, Filas& filas) {
    if (!p_.poDBAdmin.EjecutarConsulta(p_.poCnnLocal,
                                       FormatearSQL(u" SELECT * FROM $ WHERE"_sql, {viva}) + delDia() + condicion +
                                           FormatearSQL(u" UNION ALL  SELECT * FROM $ WHERE"_sql, {historia}) +
                                           delDia() + condicionHistoria,
                                       rs)) {
      return false;
    }
    QSet<qint64> vistas;
    for (const auto& f : rs) {
      const qint64 esta = entero(f[clave]);
      if (vistas.contains(esta)) continue;
      vistas.insert(esta);
      filas.push_back(f);
    }
    return true;
  }

  bool leer() {
    const auto sinAnuladas = [](LiteralSql tabla) {
      return FormatearSQL(u" AND cOperCodeAnul = 0 AND NOT cOperTipo IN ($) AND NOT cOperCode in  (Select "
                          "cOperCodeAnul from $ )"_sql,
                          {Codigos(kSinDocumento), tabla});
    };
    const Sql deArticulo = u" AND cProdCode <> 0"_sql;
    const bool bien =
        leerDos(u"Operacion"_sql, u"Operacion_Historico"_sql, deArticulo, deArticulo, u"cOperID", rsOperaciones_,
                operaciones_) &&
        leerDos(u"OperacionParalela"_sql, u"OperacionParalela_Historico"_sql, sinAnuladas(u"OperacionParalela"_sql),
                sinAnuladas(u"OperacionParalela_Historico"_sql), u"cOperCode", rsParalelas_, paralelas_);
    filas_ = static_cast<qsizetype>(operaciones_.size()) + static_cast<qsizetype>(paralelas_.size());
    return bien;
  }

  bool negar(const QString& porque) {
    p_.mensajes.mostrar(porque, Mensajes::kTitulo, Icono::Aviso);
    return false;
  }

  bool cuenta(Conexion& cnn, const Sql& sql, qint64& n) {
    Recordset rs;
    if (!p_.poDBAdmin.EjecutarConsulta(cnn, sql, rs)) return false;
    n += entero(rs[0]);
    return true;
  }

  bool sePuede() {
    qint64 abiertas = 0, pendientes = 0, alla = 0;
    for (const LiteralSql tabla : {u"Operacion"_sql, u"OperacionParalela"_sql}) {
      if (!cuenta(p_.poCnnLocal,
                  FormatearSQL(u"SELECT COUNT(*) FROM $ WHERE cOperFlagAbierto = 1 AND"_sql, {tabla}) + delDia(),
                  abiertas) ||
          !cuenta(p_.poCnnCentral,
                  FormatearSQL(u"SELECT COUNT(*) FROM $ WHERE cCajaCodi = '$' AND dOperFech >= $ AND dOperFech < $"_sql,
                               {tabla, Texto(p_.ses.psCaja), MomentoCentral(dia_.startOfDay()),
                                MomentoCentral(dia_.addDays(1).startOfDay())}),
                  alla)) {
        return false;
      }
    }
    if (!cuenta(
            p_.poCnnLocal,
            u"SELECT COUNT(*) FROM CabeceraZ z, Operacion o WHERE z.bFlagSincro = 0 AND o.cOperID > z.cOperIdIni AND "
            "o.cOperID <= z.cOperIdFin AND "_sql +
                FormatearSQL(u"o.dOperFech >= $ AND o.dOperFech < $"_sql, {dia_, dia_.addDays(1)}),
            pendientes)) {
      return false;
    }
    if (abiertas > 0) return negar(QStringLiteral("El día %1 todavía no se ha cerrado.").arg(fecha()));
    if (pendientes > 0) {
      return negar(QStringLiteral("El cierre del día %1 está pendiente de envío. Use Sincronizar Datos.").arg(fecha()));
    }
    if (filas_ >= alla) return true;
    return negar(QStringLiteral("No se reprocesa el día %1: esta caja tiene %2 registros y el servidor %3.")
                     .arg(fecha())
                     .arg(filas_)
                     .arg(alla));
  }

  ClienteTarjeta cliente(const Recordset::Fila& f, int local) {
    const QString tarjeta = LimpiarNulo(f[u"nTarjNumb"]);
    return tarjeta.isEmpty() ? ClienteTarjeta() : ClienteDeTarjeta(p_, tarjeta, local);
  }

  Error enviar() {
    const Texto dia(fecha());
    std::map<qint64, ClienteTarjeta> clientes;  // asked before the server's transaction begins
    for (const auto& f : operaciones_) {
      clientes[entero(f[u"cOperID"])] = cliente(f, static_cast<int>(entero(f[u"IdLocal"])));
    }
    if (auto e = p_.poCnnCentral.iniciar()) return e;
    if (auto e = p_.poCnnCentral.ejecutar(
            FormatearSQL(u"dbo.spr_limpiar_caja_dia '$','$'"_sql, {Texto(p_.ses.psCaja), dia}))) {
      return e;
    }
    p_.registro.RegistrarErrorLog(QStringLiteral("Sincronizando Operacion..."));
    for (const auto& f : operaciones_) {
      if (auto e = operacion(f, clientes[entero(f[u"cOperID"])])) return e;
    }
    pantalla_.InsertaLinea(QStringLiteral("Sincronizando Operaciones Paralelas"));
    for (const auto& f : paralelas_) {
      if (auto e = paralela(f)) return e;
    }
    if (auto e = p_.poCnnCentral.ejecutar(FormatearSQL(u"dbo.ZANKEBMOVIVNTA_REPROCESA '$'"_sql, {dia}))) return e;
    if (auto e = marcar()) return e;
    if (auto e = p_.poCnnCentral.confirmar()) return e;
    return p_.poCnnLocal.confirmar();
  }

  // A row that the server refuses is left out; one that it can't be asked about ends it all.
  Error operacion(const Recordset::Fila& f, const ClienteTarjeta& c) {
    Recordset rs;
    if (auto e = p_.poCnnCentral.consultar(
            FormatearSQL(u"SELECT ISNULL(MAX(cOperId),0) + 1 cOperId FROM operacion WHERE cCajaCodi='$'"_sql,
                         {Texto(p_.ses.psCaja)}),
            rs)) {
      return e;
    }
    const Sql sql = kCabezaOperacion + TuplaOperacion(f, entero(rs[0]), {p_.ses.psCaja, c, u"1"_qs});
    const QString quien = QStringLiteral("sOperid:%1;sOperCode%2;").arg(entero(rs[0])).arg(entero(f[u"cOperCode"]));
    if (const auto error = p_.poCnnCentral.ejecutar(sql)) {
      p_.registro.RegistrarErrorLog(QStringLiteral("Error. No se pudo INSERTAR Operacion. ") + quien +
                                    QStringLiteral("sSQL:") + sql.texto(Dialecto::TSql) + u';');
      return error->numero == kErrorSentencia ? Error() : error;
    }
    p_.registro.RegistrarErrorLog(QStringLiteral("Operacion INSERTADA. ") + quien);
    operacionesEnviadas_.push_back(f);
    return {};
  }

  Error paralela(const Recordset::Fila& f) {
    const qint64 codigo = entero(f[u"cOperCode"]);
    const QString quien = QStringLiteral(" con cOperCOde:%1;").arg(codigo);
    Recordset lineas;
    if (auto e = p_.poCnnLocal.consultar(
            FormatearSQL(u" SELECT * FROM OperacionParalelaProducto WHERE cOperCode = $ and cProdCode <> 0  UNION ALL "
                         " SELECT * FROM OperacionParalelaProductoHist WHERE cOperCode = $ and cProdCode <> 0 AND NOT "
                         "cOperCode IN (SELECT cOperCode FROM OperacionParalelaProducto)"_sql,
                         {codigo, codigo}),
            lineas)) {
      return e;
    }
    if (const auto error =
            p_.poCnnCentral.ejecutar(kCabezaParalela + TuplaParalela(f, {p_.ses.psCaja, cliente(f, 0), u"1"_qs}))) {
      p_.registro.RegistrarErrorLog(QStringLiteral("No se pudo insertar OP") + quien);
      return error->numero == kErrorSentencia ? Error() : error;
    }
    if (!lineas.Eof()) {
      if (auto e = p_.poCnnCentral.ejecutar(
              FormatearSQL(u"DELETE FROM operacionparalelaproducto WHERE cOperCOde = $ AND cCajaCodi = '$'"_sql,
                           {codigo, Texto(p_.ses.psCaja)}))) {
        p_.registro.RegistrarErrorLog(QStringLiteral("No se puedo DELETE OPP.") + quien.mid(4));
        return e;
      }
    }
    for (const auto& l : lineas) {
      if (auto e = p_.poCnnCentral.ejecutar(kCabezaLineaParalela + TuplaLineaParalela(l, p_.ses.psCaja))) {
        p_.registro.RegistrarErrorLog(QStringLiteral("No se puedo insertar OPP.") + quien.mid(4));
        return e;  // a document without one of its lines would be another document
      }
      p_.registro.RegistrarErrorLog(QStringLiteral("Se insertaron OPP") + quien);
    }
    paralelasEnviadas_.push_back(f);
    return {};
  }

  // What the live rows say of themselves afterwards.
  Error marcar() {
    if (auto e = p_.poCnnLocal.iniciar()) return e;
    const auto poner = [&](LiteralSql tabla, LiteralSql clave, const Filas& filas, const Filas& enviadas) -> Error {
      QSet<qint64> estan;
      for (const auto& f : enviadas) estan.insert(entero(f[clave.texto()]));
      for (const auto& f : filas) {
        const qint64 n = entero(f[clave.texto()]);
        if (auto e =
                p_.poCnnLocal.ejecutar(FormatearSQL(u"UPDATE $ SET cFlagSincronizacion = '$' WHERE $ = $"_sql,
                                                    {tabla, Texto(estan.contains(n) ? u"1"_qs : u"0"_qs), clave, n}))) {
          return e;
        }
      }
      return {};
    };
    if (auto e = poner(u"Operacion"_sql, u"cOperID"_sql, operaciones_, operacionesEnviadas_)) return e;
    if (auto e = poner(u"OperacionParalela"_sql, u"cOperCode"_sql, paralelas_, paralelasEnviadas_)) return e;
    for (const auto& f : paralelasEnviadas_) {
      const qint64 n = entero(f[u"cOperCode"]);
      if (auto e = EjecutarTodas(
              p_.poCnnLocal,
              {FormatearSQL(u"DELETE FROM ParalelaEnviada WHERE cOperCode = $"_sql, {n}),
               FormatearSQL(u"INSERT INTO ParalelaEnviada (cOperCode, cEstado, cOperCodeRela, cOperCodeAnul) SELECT "
                            "cOperCode, cEstado, cOperCodeRela, cOperCodeAnul FROM OperacionParalela WHERE cOperCode = "
                            "$"_sql,
                            {n})})) {
        return e;
      }
    }
    return {};
  }

  Puesto& p_;
  FrmUpdt& pantalla_;
  const QDate dia_;
  Recordset rsOperaciones_, rsParalelas_;
  Filas operaciones_, paralelas_, operacionesEnviadas_, paralelasEnviadas_;
  qsizetype filas_ = 0;
};

}  // namespace

void SincronizarFecha(Puesto& p, FrmUpdt& pantalla) {
  {
    const Ocupado ocupado(p.mensajes, QStringLiteral("Buscando el servidor central…"));
    if (!p.poDBAdmin.AbrirBD(p.poCnnCentral, p.ses.psConexionCentral, true)) return;
  }
  const auto texto = p.mensajes.pedir(QStringLiteral("Ingrese una fecha"), QStringLiteral("Fecha de Sincronizacion"),
                                      QStringLiteral("19/07/1979"));
  if (!texto) return;
  const auto fecha = LeerFecha(*texto);
  if (!fecha) {
    p.mensajes.mostrar(QStringLiteral("La fecha debe tener el formato dd/mm/yyyy"), Mensajes::kTitulo, Icono::Critico);
    return;
  }
  pantalla.alMostrar();
  Reproceso(p, pantalla, fecha->date()).hacer();
}
