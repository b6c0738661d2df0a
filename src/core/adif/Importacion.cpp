// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/adif/Importacion.h"

#include "core/adif/Duplicados.h"
#include "core/rules/Bandas.h"
#include "core/rules/Numeros.h"
#include "core/rules/Validacion.h"
#include "core/store/Almacen.h"

#include <QDir>

namespace {

bool HoraValida(const QString &hora)
{
    return HoraInvalida(hora) == 0 && hora[0].isDigit() && hora[1].isDigit() && hora[3].isDigit() &&
           hora[4].isDigit();
}

} // namespace

QStringList LineasDeErrores(const ErroresImportacion &e)
{
    QStringList lineas;
    for (const auto &[cuenta, texto] :
         {std::pair{e.fecha, " error(es) Fecha"}, std::pair{e.hora, " error(es) QTR"},
          std::pair{e.reporte, " error(es) RT(S)"},
          std::pair{e.bandaFrec, " error(es) Banda/Frec."},
          std::pair{e.adif, " error(es) ADIF."}}) {
        if (cuenta > 0)
            lineas << QStringLiteral("> ") + QString::number(cuenta) + QLatin1String(texto);
    }
    return lineas;
}

std::optional<RegistroQSO> QSODeLinea(QByteArrayView linea, bool utf8, bool deLbN,
                                      const QString &senalManual, ErroresImportacion &errores)
{
    const CamposAdif c = LeerCampos(linea, utf8);
    auto texto = [&](Campo campo) { return TextoAdif(c[campo], utf8); };
    RegistroQSO q;
    q.SuGrid = texto(Campo::GridSquare);
    q.MiGrid = texto(Campo::MyGridSquare);
    if (deLbN)
        q.LbN = texto(Campo::QslRcvd);
    q.MyCall = texto(Campo::StationCallsign);
    q.Estacion = texto(Campo::Call);
    if (const QString f = texto(Campo::QsoDate); !f.isEmpty())
        q.Fecha = f.mid(6, 2) + QLatin1Char('/') + f.mid(4, 2) + QLatin1Char('/') + f.left(4);
    if (const QString h = texto(Campo::TimeOn); !h.isEmpty())
        q.Hora = h.left(2) + QLatin1Char(':') + h.mid(2, 2); // the seconds go
    q.Banda = texto(Campo::Band);
    q.Frecuencia = texto(Campo::Freq);
    q.RSE = texto(Campo::RstSent);
    q.RSR = texto(Campo::RstRcvd);
    q.Operador = texto(Campo::Operator);
    q.Modo = texto(Campo::Mode);
    const QString propagacion = texto(Campo::PropMode);
    q.Obs = texto(Campo::Comment);
    q.Nombre_Sat = texto(Campo::SatName);

    // Either of band and frequency makes the other; with neither the QSO is kept all the
    // same, and counted.
    if (q.Banda.isEmpty() && q.Frecuencia.isEmpty())
        ++errores.bandaFrec;
    else if (q.Frecuencia.isEmpty())
        q.Frecuencia = FrecuenciaDeBanda(q.Banda);
    else if (q.Banda.isEmpty())
        q.Banda = BandaDeMhz(q.Frecuencia);

    const auto sat = QLatin1String("SAT");
    if (q.Modo.compare(sat, Qt::CaseInsensitive) == 0) {
        q.Modo = QStringLiteral("FM");
        if (propagacion.compare(sat, Qt::CaseInsensitive) == 0 && q.Nombre_Sat.isEmpty())
            q.Nombre_Sat = QStringLiteral("Via Satelite");
    }
    if (q.LbN == u"Y")
        q.LbN = QStringLiteral("2");
    else if (q.LbN == u"N")
        q.LbN = QStringLiteral("1");

    if (q.RSE.isEmpty() && q.RSR.isEmpty()) {
        ++errores.reporte;
        return std::nullopt;
    }
    if (q.RSE.isEmpty())
        q.RSE = q.RSR;
    if (q.RSR.isEmpty())
        q.RSR = q.RSE;
    if (!senalManual.isEmpty())
        q.MyCall = senalManual;
    if (q.Estacion.isEmpty() || q.Fecha.isEmpty() || q.Hora.isEmpty()) {
        ++errores.adif;
        return std::nullopt;
    }
    if (propagacion == sat && q.Modo.isEmpty()) {
        q.Modo = QStringLiteral("FM");
        if (q.Nombre_Sat.isEmpty())
            q.Nombre_Sat = QStringLiteral("Satélite");
    }

    // The widths of the log's columns, as the rest of the program shows them.
    for (auto [campo, ancho] : {std::pair{&q.Modo, 7},
                                {&q.Banda, 9},
                                {&q.MyCall, 20},
                                {&q.Estacion, 20},
                                {&q.RSE, 3},
                                {&q.RSR, 3},
                                {&q.Obs, 100},
                                {&q.Operador, 50},
                                {&q.Frecuencia, 10},
                                {&q.MiGrid, 6},
                                {&q.SuGrid, 6}})
        campo->truncate(ancho);

    if (FechaInvalida(q.Fecha) != 0) {
        ++errores.fecha;
        return std::nullopt;
    }
    if (!HoraValida(q.Hora)) {
        ++errores.hora;
        return std::nullopt;
    }
    return q;
}

QString PreguntaDuplicados(int qsos, int duplicados)
{
    return QStringLiteral("de %1 QSOs hay %2 DUPlLICADOS\r\n\r\nLos desea Reemplazar?\r\n\r\n"
                          "Nota:\r\nSe consideran DUPLICADOS los QSOs en un entorno de 10 minutos")
        .arg(qsos)
        .arg(duplicados);
}

// ---- The stages ----------------------------------------------------------------------------

Importacion::Importacion(Almacen &almacen)
    : almacen_(almacen)
{}

void Importacion::Bombear()
{
    if (enlace.bombear)
        enlace.bombear();
}

bool Importacion::Seguir()
{
    return !enlace.seguir || enlace.seguir();
}

void Importacion::Estado(const QString &texto)
{
    if (enlace.estado)
        enlace.estado(texto);
}

void Importacion::Progreso(int valor, int maximo)
{
    if (enlace.progreso)
        enlace.progreso(valor, maximo);
}

Resultado<> Importacion::Empezar()
{
    lineasQSO_.clear();
    archivo_ = {};
    programa_.clear();
    return almacen_.VaciarEspera();
}

Importacion::Medida Importacion::Medir(const QString &ruta, const QString &nombre,
                                       const QTime &hora)
{
    using Fin = Medida::Fin;
    Medida m;
    lineasQSO_.clear();
    programa_.clear();
    Resultado<ArchivoAdif> leido = NormalizarSaltos(ruta, hora);
    if (!leido) {
        m.fin = Fin::Fallo;
        m.mensaje = leido.Mensaje();
        return m;
    }
    archivo_ = std::move(leido.Valor());
    utf8_ = EsUtf8(archivo_.datos);
    const std::vector<QByteArrayView> lineas = LineasAdif(archivo_.datos);
    Estado(QStringLiteral("Midiendo ..."));

    // A first pass tells a file of one record a line from one whose records are spread.
    int llamadas = 0, registros = 0;
    for (QByteArrayView linea : lineas) {
        if (TieneTag(linea, "<CALL:")) {
            ++llamadas;
            if (EsLineaQSO(linea))
                ++registros;
        }
        Bombear();
    }
    Estado(QStringLiteral("Cargando ..."));
    if (llamadas != 0 && registros == 0) {
        // A copy with one record a line is left for the operator; this import still reads
        // the file as it is, finds no QSO line in it and says so.
        Estado(QStringLiteral("Rehaciendo ..."));
        RehacerAdif(ruta, archivo_.datos);
        Estado(QStringLiteral("Cargando ..."));
    }

    for (QByteArrayView linea : lineas) {
        if (++m.lineas > kMaximoLineasAdif) {
            lineasQSO_.clear();
            m.fin = Fin::MasDeDiezMil;
            m.mensaje = QStringLiteral("El archivo:\r\n%1\r\ntiene mas de 10.000 QSOs!")
                            .arg(QDir::toNativeSeparators(ruta));
            return m;
        }
        if (TieneTag(linea, "<PROGRAMID:"))
            m.programa = ProgramaDeLinea(TextoAdif(linea, utf8_));
        if (linea.contains(QByteArrayView("eQSL.cc")))
            m.programa = QStringLiteral("Export from eQSL.cc");
        if (EsLineaQSO(linea))
            lineasQSO_.push_back(linea);
        if (const QString estacion = LeerTag(linea, "<STATION_CALLSIGN:", utf8_);
            !estacion.isEmpty() && !m.estaciones.contains(estacion))
            m.estaciones << estacion;
        Bombear();
    }
    m.qsos = QSOs();
    programa_ = m.programa;
    if (m.qsos == 0) {
        m.fin = Fin::SinQSOs;
        m.mensaje = QStringLiteral("El Archivo ") + nombre + QStringLiteral(" no tiene QSOss!");
    }
    return m;
}

Importacion::Procesado Importacion::Procesar(const QString &senalManual, const QString &log)
{
    Procesado p;
    Estado(QStringLiteral("Procesando ..."));
    const bool deLbN = programa_.contains(QLatin1String("LbN"));
    const int total = QSOs();
    Progreso(0, total);
    if (Resultado<> r = almacen_.IniciarTransaccion(); !r) {
        p.fallo = r.Mensaje();
        return p;
    }
    for (int i = 0; i < total; ++i) {
        Bombear();
        const std::optional<RegistroQSO> qso =
            QSODeLinea(lineasQSO_[size_t(i)], utf8_, deLbN, senalManual, p.errores);
        if (!Seguir()) {
            p.detenido = true;
            break;
        }
        if (qso) {
            const std::optional<qint64> duplicado = BuscarDuplicado(almacen_, log, *qso);
            const QString marca = duplicado ? QString::number(*duplicado) : QStringLiteral("VA");
            if (Resultado<qint64> r = almacen_.AgregarQSOEspera(*qso, marca, log); !r) {
                static_cast<void>(almacen_.DeshacerTransaccion());
                p = {};
                p.fallo = r.Mensaje();
                return p;
            }
            ++(duplicado ? p.duplicados : p.nuevos);
        }
        Progreso(i + 1, total);
    }
    if (Resultado<> r = almacen_.ConfirmarTransaccion(); !r) {
        p = {};
        p.fallo = r.Mensaje();
    }
    return p;
}

Importacion::Carga Importacion::Cargar(bool reemplazar, const QString &log)
{
    Carga c;
    Estado(QStringLiteral("Cargando ..."));
    const QVector<Almacen::MarcaEspera> marcas = almacen_.MarcasEspera();
    const int total = int(marcas.size());
    const int maximo = std::max(QSOs(), total);
    Progreso(0, maximo);
    if (Resultado<> r = almacen_.IniciarTransaccion(); !r) {
        c.fallo = r.Mensaje();
        return c;
    }
    const auto fallar = [&c, this](const QString &fallo) {
        static_cast<void>(almacen_.DeshacerTransaccion());
        c = {};
        c.fallo = fallo;
        return c;
    };
    for (int desde = 0; desde < total; desde += kFilasPorBloque) {
        const int hasta = std::min(desde + kFilasPorBloque, total);
        Resultado<int> nuevos =
            almacen_.AgregarQSOsDeEspera(marcas[desde].id, marcas[hasta - 1].id, log);
        if (!nuevos)
            return fallar(nuevos.Mensaje());
        c.cargados += nuevos.Valor();
        for (int i = desde; reemplazar && i < hasta; ++i) {
            const Almacen::MarcaEspera &m = marcas[i];
            if (m.Dupe == u"VA")
                continue;
            if (Resultado<> r = almacen_.ActualizarQSODeEspera(qint64(NumeroInicial(m.Dupe)), m.id);
                !r)
                return fallar(r.Mensaje());
            ++c.cargados;
        }
        Bombear();
        if (!Seguir()) {
            c.detenido = true;
            break;
        }
        Progreso(hasta, maximo);
    }
    if (Resultado<> r = almacen_.ConfirmarTransaccion(); !r) {
        c = {};
        c.fallo = r.Mensaje();
    }
    return c;
}
