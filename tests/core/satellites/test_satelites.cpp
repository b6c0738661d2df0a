// SPDX-License-Identifier: GPL-3.0-or-later
// The satellite catalogue file, and the uplink frequency that satellite mode reads back from
// its caption.

#include "core/satellites/Catalogo.h"
#include "core/satellites/ModoSatelite.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

template<typename... T> void Fila(const char *nombre, const T &...valores)
{
    (QTest::newRow(nombre) << ... << valores);
}

} // namespace

class TestSatelites : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // A new folder's list, one line each closed by CRLF, and every line one the readers take.
    void listaBase()
    {
        QTemporaryDir carpeta;
        QVERIFY(EscribirSatelitesBase(carpeta.path()));
        QFile f(ArchivoSatelites(carpeta.path()));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), (SatelitesBase().join(u"\r\n"_s) + u"\r\n"_s).toLatin1());
        QCOMPARE(LeerCatalogo(carpeta.path()).size(), SatelitesBase().size());
    }

    // A line of the file, as satellite mode shows it once chosen ("-" when the readers
    // leave it out), and the frequency it gives ("nada" when none).
    void lineaYFrecuencia_data()
    {
        QTest::addColumn<QString>("linea");
        QTest::addColumn<QString>("subida");
        QTest::addColumn<QString>("frecuencia");
        Fila("base 70cm", "AO-7;70cm;2m;SSB;100.4", "Subida: 70cm |SubTono: 100.4", "435.550");
        Fila("base 2m", "FO-29;2m;70cm;SSB; ", "Subida: 2m |SubTono:  ", "145.550");
        Fila("sin blanco", "LILACSAT-2;2m;70cm;SSB;", "Subida: 2m |SubTono: ", "145.550");
        Fila("editada", "X;70cm;2m;FM;67.0;435.100", "Subida: 70cm 435.100|SubTono: 67.0",
             "435.100");
        Fila("editada sin frecuencia", "X;2m;70cm;FM; ; ", "Subida: 2m  |SubTono:  ", "145.550");
        Fila("23cm", "X;23cm;70cm;FM; ;1267.100", "Subida: 23cm 1267.100|SubTono:  ", "126..10");
        Fila("23cm sin frecuencia", "X;23cm;70cm;FM; ; ", "Subida: 23cm  |SubTono:  ", ".");
        Fila("campo de más", "X;2m;70cm;FM;67.0;145.800;x", "Subida: 2m 145.800;x|SubTono: 67.0",
             "145.800");
        Fila("corta", "X;2m;70cm;FM", "-", "nada");
        Fila("enorme", "X;2m;70cm;FM;" + QString(300, u'9'), "-", "nada");
    }

    void lineaYFrecuencia()
    {
        QFETCH(QString, linea);
        const std::optional<Satelite> s = LeerSatelite(linea);
        const RotulosSatelite r = s ? RotulosElegido(*s) : RotulosSatelite{};
        QTEST(s ? r.subida + u'|' + r.subtono : u"-"_s, "subida");
        // What the load of the list writes, with no blank, never moves the frequency.
        if (s)
            QVERIFY(!ValorDeSubida(RotulosDeCarga(*s).subida));
        const std::optional<FrecuenciaSubida> f = ValorDeSubida(r.subida);
        QTEST(f ? f->mhz + u'.' + f->khz : u"nada"_s, "frecuencia");
    }
};

QTEST_GUILESS_MAIN(TestSatelites)
#include "test_satelites.moc"
