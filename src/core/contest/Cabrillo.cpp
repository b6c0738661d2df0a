// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/contest/Cabrillo.h"

#include "core/contest/Concurso.h"
#include "core/platform/ArchivoTexto.h"

#include <QRegularExpression>

namespace {

const QString FinDeLinea = QStringLiteral("\r\n");

} // namespace

QString FrecuenciaCabrillo(const QString &banda)
{
    static const std::pair<const char16_t *, const char16_t *> tabla[] = {
        {u"160m", u"1820"}, {u"80m", u"3500"},  {u"40m", u"7000"}, {u"20m", u"14000"},
        {u"15m", u"21000"}, {u"10m", u"28000"}, {u"6m", u"52000"}, {u"2m", u"144000"},
    };
    for (const auto &[b, frecuencia] : tabla)
        if (banda == b)
            return QString::fromUtf16(frecuencia);
    return banda;
}

QString LineaCabrillo(const FilaConcurso &f)
{
    const QString modo = f.Modo == u"SSB" || f.Modo == u"FM" ? QStringLiteral("PH") : f.Modo;
    const QString reporte = ReporteConcurso(f.Modo);
    const QString fecha = f.Fecha.left(4) + u'-' + f.Fecha.mid(4, 2) + u'-' + f.Fecha.mid(6, 2);
    QString l;
    l.reserve(96);
    l += QLatin1String("QSO:") + FrecuenciaCabrillo(f.Banda).rightJustified(6) + u' ' + modo +
         u' ' + fecha + u' ' + f.Hora + u' ' + f.MyCall.leftJustified(13) + u' ' +
         reporte.rightJustified(3) + u' ' + f.RSE.leftJustified(6) + u' ' +
         f.Estacion.leftJustified(13) + u' ' + reporte.rightJustified(3) + u' ' +
         f.RSR.leftJustified(6);
    return l;
}

QSOsCabrillo ArmarQSOsCabrillo(const QVector<FilaConcurso> &filas, const QString &senalPropia)
{
    QSOsCabrillo r;
    r.texto.reserve(filas.size() * 90);
    for (const FilaConcurso &f : filas) {
        if (f.Modo.isEmpty())
            continue;
        if (f.MyCall != senalPropia) {
            r.otraSenal = true;
            break;
        }
        ++r.cantidad;
        r.texto += LineaCabrillo(f);
        r.texto += FinDeLinea;
    }
    return r;
}

QString MensajeOtraSenal()
{
    return QStringLiteral("Error!") + FinDeLinea +
           QStringLiteral("En el log distinta Señal Distintiva");
}

QString MensajeSinQSOs()
{
    return QStringLiteral("No hay ningún QSO para exportar a Cabrillo!");
}

QString TituloEncabezado(const QString &concurso, int cantidad)
{
    return QStringLiteral("Encabezado de %1 con %2 QSO(s)").arg(concurso).arg(cantidad);
}

QString TextoEncabezado(const EncabezadoCabrillo &e, const QString &version)
{
    const std::pair<const char *, const QString *> lineas[] = {
        {"CALLSIGN: ", &e.callsign},
        {"CONTEST: ", &e.contest},
        {"CATEGORY-OPERATOR: ", &e.categoriaOperador},
        {"CATEGORY-POWER: ", &e.potencia},
        {"CATEGORY-BAND: ", &e.bandas},
        {"CATEGORY-MODE: ", &e.modo},
        {"OPERATORS: ", &e.operadores},
        {"NAME: ", &e.nombre},
        {"ADDRESS: ", &e.domicilio1},
        {"ADDRESS: ", &e.domicilio2},
        {"ADDRESS: ", &e.domicilio3},
        {"E-MAIL: ", &e.correo},
    };
    QString t = QStringLiteral("START-OF-LOG: 3.0") + FinDeLinea;
    for (const auto &[etiqueta, valor] : lineas)
        t += QLatin1String(etiqueta) + *valor + FinDeLinea;
    t += QStringLiteral("CREATED-BY: CR RADIOLOG ") + version + FinDeLinea;
    return t;
}

std::optional<std::pair<int, QString>> FaltaEnEncabezado(const EncabezadoCabrillo &e)
{
    if (e.callsign.isEmpty())
        return std::pair{0, QStringLiteral("Falta su Señal Distintiva!")};
    if (e.nombre.isEmpty())
        return std::pair{1, QStringLiteral("Falta su Nombre!")};
    return std::nullopt;
}

QString ArchivoDatosCbr(const QString &carpeta)
{
    return carpeta + QStringLiteral("/datos.cbr");
}

QStringList LeerDatosCbr(const QString &carpeta)
{
    const Resultado<QStringList> lineas = LeerLineas(ArchivoDatosCbr(carpeta));
    return lineas ? lineas->mid(0, 5) : QStringList();
}

Resultado<> GuardarDatosCbr(const QString &carpeta, const QStringList &datos)
{
    return EscribirLineas(ArchivoDatosCbr(carpeta), datos);
}

Resultado<> GuardarCabrillo(const QString &archivo, const QString &texto)
{
    static const QRegularExpression finDeLinea(QStringLiteral("\r\n|\r|\n"));
    return EscribirLineas(archivo, texto.split(finDeLinea));
}

QString PreguntaSobregrabar(const QString &archivo)
{
    return QStringLiteral("El archivo ") + FinDeLinea + archivo + FinDeLinea +
           QStringLiteral("ya existe!") + FinDeLinea + FinDeLinea + QStringLiteral("sobregraba?");
}

QString MensajeGuardado(const QString &archivo)
{
    return archivo + FinDeLinea + QStringLiteral("Guardado!") + FinDeLinea + FinDeLinea +
           QStringLiteral("Desea verlo?");
}
