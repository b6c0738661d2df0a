// SPDX-License-Identifier: GPL-3.0-or-later
// The import window: the dialogs of each end of the measuring, the own callsign asked
// for, the duplicate question and the load, and a stop asked by Esc or by the close box.
#include "gui/adif/Form12.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

using Tipo = LlamadaDialogo::Tipo;
using namespace Qt::StringLiterals;

namespace {

const QString Log = u"Pruebas"_s;
// A file loaded in two whole blocks and part of a third.
constexpr int kCargados = 2 * kFilasPorBloque + 3;

QByteArray Registros(int n, const QByteArray &resto = "<STATION_CALLSIGN:6>LU1AAA")
{
    QByteArray datos = "<PROGRAMID:4>Otro\r\n<EOH>\r\n";
    for (int i = 0; i < n; ++i)
        datos += "<CALL:6>LU5XX" + QByteArray::number(i) + resto +
                 "<QSO_DATE:8>20240315<TIME_ON:4>1200<BAND:3>40m<MODE:3>SSB<RST_SENT:2>59<EOR>\r\n";
    return datos;
}

// An import window over a fresh store, with the file given as the one the dialog answers.
struct Ventana
{
    explicit Ventana(const QByteArray &datos)
    {
        p->LogenUso = Log;
        p.Escribir(u"log.adi"_s, datos);
        d().archivosAbrir.enqueue(p.Archivo(u"log.adi"_s));
    }
    DialogosFalso &d() { return *p.falsos.dialogos; }
    int Espera() { return int(p->almacen().FilasEspera().size()); }
    qint64 EnLog() { return p->almacen().CantidadQSOs(Log); }

    ContextoPrueba p;
    int recargas = 0;
    Form12 f{p.ctx(), [this] { ++recargas; }};
};

} // namespace

class TestForm12 : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void medir_data()
    {
        QTest::addColumn<QByteArray>("datos");
        QTest::addColumn<QString>("entrada");      // the own callsign typed, when asked
        QTest::addColumn<QStringList>("dialogos"); // "kind: text (title)"
        QTest::addColumn<QStringList>("lista2");
        QTest::addColumn<int>("espera");
        const QString pregunta =
            u"PreguntaSiNo: El Archivo log.adi no tiene el campo <STATION_CALLSIGN:\r\nContinua con la carga?"_s;
        const QString abrir = u"AbrirArchivo: ADIF| *.adi; *.adi (Abrir Archivo de ADIF ...)"_s;
        const QString sd = u"Entrada: Ingrese su Señal Distintiva (SD)"_s;
        QTest::newRow("señal tecleada")
            << Registros(2, "<STATION_CALLSIGN:0>") + "<CALL:2>X1<EOR>\r\n"
            << u" lu9zzz "_s << QStringList{abrir, pregunta, sd}
            << QStringList{u"<STATION_CALLSIGN:LU9ZZZ"_s, u"> 1 error(es) RT(S)"_s,
                           u"> 1 error(es) Banda/Frec."_s}
            << 2;
        QTest::newRow("sin señal tecleada")
            << Registros(2, {}) << QString() << QStringList{abrir, pregunta, sd} << QStringList()
            << 0;
    }

    void medir()
    {
        QFETCH(QByteArray, datos);
        QFETCH(QString, entrada);
        Ventana v(datos);
        v.d().respuestasSiNo.enqueue(true);
        v.d().entradas.enqueue(entrada);
        v.f.Command1->click();

        QStringList dialogos;
        for (const LlamadaDialogo &l : v.d().llamadas)
            dialogos << QString::fromLatin1(NombreTipo(l.tipo)) + u": "_s + l.texto +
                            (l.titulo.isEmpty() ? QString() : u" ("_s + l.titulo + u')');
        QTEST(dialogos, "dialogos");
        QStringList lista2;
        for (int i = 0; i < v.f.List2->count(); ++i)
            lista2 << v.f.List2->item(i)->text();
        QTEST(lista2, "lista2");
        QTEST(v.Espera(), "espera");
        QCOMPARE(v.f.Command3->isEnabled(), v.Espera() > 0);
        QVERIFY(v.f.Command1->isEnabled() && !v.f.ImportandoAdif && v.f.Label8->isHidden());
        QCOMPARE(v.EnLog(), 0); // nothing reaches the log before "Cargar"
    }

    // Replacing: the question word for word, the old QSO written over, the view reloaded.
    void cargarDuplicados()
    {
        Ventana v(Registros(3));
        RegistroQSO viejo;
        viejo.Estacion = u"LU5XX1"_s, viejo.MyCall = u"LU1AAA"_s, viejo.Modo = u"SSB"_s;
        viejo.Banda = u"40m"_s, viejo.Fecha = u"15/03/2024"_s, viejo.Hora = u"12:05:00"_s;
        const qint64 id = Hecho(v.p->almacen().AgregarQSO(viejo, Log));
        v.f.Command1->click();
        QCOMPARE(v.f.Label9->text() + u'/' + v.f.Label10->text(), u"2/1"_s); // new/duplicates

        v.d().Limpiar();
        v.d().respuestasSiNo.enqueue(true);
        v.f.Command3->click();
        QCOMPARE(
            v.d().Textos(),
            QStringList{u"de 3 QSOs hay 1 DUPlLICADOS\r\n\r\nLos desea Reemplazar?\r\n\r\nNota:\r\n"
                        "Se consideran DUPLICADOS los QSOs en un entorno de 10 minutos"_s});
        QCOMPARE(v.EnLog(), 3);
        QCOMPARE(v.p->almacen().QSOPorId(Log, id)->Hora, u"12:00:00"_s);
        QCOMPARE(v.recargas, 1);
        QVERIFY(!v.f.isVisible());
    }

    void detener_data()
    {
        QTest::addColumn<bool>("cargando"); // or processing
        QTest::addColumn<bool>("cierre");   // the close box, or Esc
        QTest::addColumn<bool>("si");       // the answer to "Cancela el proceso?"
        QTest::addColumn<int>("espera");
        QTest::addColumn<int>("log");
        // Processing looks at the window at every row: the stop comes at the third of five.
        QTest::newRow("Esc procesando, sí") << false << false << true << 2 << 0;
        QTest::newRow("cierre procesando, sí") << false << true << true << 2 << 0;
        // Loading looks at it after every block: the stop comes after the second.
        QTest::newRow("Esc cargando, sí")
            << true << false << true << kCargados << 2 * kFilasPorBloque;
        QTest::newRow("cierre cargando, no") << true << true << false << kCargados << kCargados;
    }

    void detener()
    {
        QFETCH(bool, cargando);
        QFETCH(bool, cierre);
        QFETCH(bool, si);
        const int registros = cargando ? kCargados : 5;
        Ventana v(Registros(registros));
        v.f.show();
        // The measuring pumps each of the file's lines (its records and two of header) twice
        // before the processing does.
        int veces = 0;
        const int cuando = cargando ? 2 : 2 * (registros + 2) + 3;
        v.d().respuestasSiNo.enqueue(si);
        if (cargando)
            v.f.Command1->click();
        v.p.falsos.bomba->alBombear = [&] {
            if (++veces == cuando)
                cierre ? void(v.f.close()) : QTest::keyClick(&v.f, Qt::Key_Escape);
        };
        (cargando ? v.f.Command3 : v.f.Command1)->click();
        QCOMPARE(v.d().Textos(Tipo::PreguntaSiNo), QStringList{u"Cancela el proceso?"_s});
        QTEST(v.Espera(), "espera");
        QTEST(int(v.EnLog()), "log");
        QCOMPARE(v.f.isVisible(), !cargando && !(cierre && si));
    }
};

QTEST_MAIN(TestForm12)
#include "test_form12.moc"
