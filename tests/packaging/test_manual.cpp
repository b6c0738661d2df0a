// SPDX-License-Identifier: GPL-3.0-or-later
// The manual speaks of every window: each window class of the program, built here, has a
// section headed by its caption in docs/manual.md, and the PDF the build made holds it. A
// window added without its section, or a PDF that lost text, fails here.

#include "gui/adif/Form12.h"
#include "gui/adif/Form15.h"
#include "gui/adif/Form6.h"
#include "gui/config/Form2.h"
#include "gui/contest/Form4.h"
#include "gui/contest/Form7.h"
#include "gui/contest/Form8.h"
#include "gui/contest/Form9.h"
#include "gui/editing/Form5.h"
#include "gui/lookup/Form33.h"
#include "gui/main/Form1.h"
#include "gui/main/Form10.h"
#include "gui/main/Form17.h"
#include "gui/main/Form18.h"
#include "gui/main/Form3.h"
#include "gui/satellites/Form11.h"
#include "gui/nationallog/Form14.h"
#include "gui/nationallog/VentanaSubida.h"
#include "support/ContextoPrueba.h"

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;
using Fabrica = std::function<QWidget *(Contexto &)>;

namespace {

QString Leer(const QString &archivo)
{
    QFile f(archivo);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

} // namespace

class TestManual : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ventanas_data();
    void ventanas();
    void todasLasVentanas();

private:
    QStringList probadas_;
};

void TestManual::ventanas_data()
{
    // The class; how it is built; the fixed part of its caption as the operator sees it;
    // the heading of its section, which begins with that caption.
    QTest::addColumn<QString>("clase");
    QTest::addColumn<Fabrica>("fabrica");
    QTest::addColumn<QString>("titulo");
    QTest::addColumn<QString>("encabezado");
    auto fila = [](const char *clase, Fabrica f, const QString &titulo, const QString &enc) {
        QTest::newRow(clase) << QString::fromLatin1(clase) << f << titulo << enc;
    };
    fila(
        "Form1", [](Contexto &c) { return new Form1(c); }, u"Carancho Radiolog"_s,
        u"Carancho Radiolog (la ventana principal)"_s);
    fila(
        "Form2", [](Contexto &c) { return new Form2(c); }, u"Configuración"_s, u"Configuración"_s);
    fila(
        "Form3", [](Contexto &) { return new Form3; }, u"Abrir Log ..."_s, u"Abrir Log ..."_s);
    fila(
        "Form5", [](Contexto &c) { return new Form5(c, [] {}); }, u"Edición de QSO #"_s,
        u"Edición de QSO # (corregir un QSO)"_s);
    fila(
        "Form10", [](Contexto &c) { return new Form10(c); }, u"Acerca de ..."_s,
        u"Acerca de ..."_s);
    fila(
        "Form11", [](Contexto &c) { return new Form11(c, [] {}); }, u"Editar Satélites ..."_s,
        u"Editar Satélites ..."_s);
    fila(
        "Form6", [](Contexto &c) { return new Form6(c); }, u"Exportar ..."_s,
        u"Exportar ... (buscar y exportar)"_s);
    fila(
        "Form15", [](Contexto &c) { return new Form15(c); }, u"Back Up ..."_s,
        u"Back Up ... (copia en ADIF)"_s);
    fila(
        "Form12", [](Contexto &c) { return new Form12(c, [] {}); }, u"Importar ADIF ..."_s,
        u"Importar ADIF ..."_s);
    fila(
        "Form8", [](Contexto &c) { return new Form8(c); }, u"Logs Cabrillos ..."_s,
        u"Logs Cabrillos ..."_s);
    fila(
        "Form4", [](Contexto &c) { return new Form4(c); }, u"Cabrillo ..."_s,
        u"Cabrillo ... (anotar un concurso)"_s);
    fila(
        "Form9", [](Contexto &c) { return new Form9(c); }, u"Encabezado"_s,
        u"Encabezado de un concurso (el archivo Cabrillo)"_s);
    fila(
        "Form7", [](Contexto &c) { return new Form7(c, [] {}); }, u"Edición de Registro #"_s,
        u"Edición de Registro # (corregir un QSO de concurso)"_s);
    // The history's caption is the callsign looked for.
    fila(
        "Form17",
        [](Contexto &) {
            auto *f = new Form17;
            f->Llenar(u"LU7HF"_s, {});
            return f;
        },
        u"LU7HF"_s, u"La historia de un corresponsal"_s);
    fila(
        "Form18", [](Contexto &) { return new Form18; }, u"Carancho Radiolog"_s,
        u"Carancho Radiolog (el cierre)"_s);
    fila(
        "Form14", [](Contexto &c) { return new Form14(c); }, u"Argentina en LbN"_s,
        u"Argentina en LbN"_s);
    fila(
        "Form33", [](Contexto &) { return new Form33; }, u"Libro Nacional"_s,
        u"Libro Nacional (la consulta de una señal)"_s);
    fila(
        "VentanaSubida", [](Contexto &) { return new VentanaSubida; }, u"Subida a LbN"_s,
        u"Subida a LbN"_s);
}

void TestManual::ventanas()
{
    QFETCH(QString, clase);
    QFETCH(Fabrica, fabrica);
    QFETCH(QString, titulo);
    QFETCH(QString, encabezado);
    probadas_ << clase;
    ContextoPrueba prueba;
    std::unique_ptr<QWidget> ventana(fabrica(prueba.ctx()));
    QVERIFY2(ventana->windowTitle().startsWith(titulo), qPrintable(ventana->windowTitle()));

    const QString manual = Leer(u"" RADIOLOG_FUENTES "/docs/manual.md"_s);
    QVERIFY2(manual.contains(u"\n## "_s + encabezado + u'\n'),
             qPrintable(u"docs/manual.md no tiene la sección «## %1»"_s.arg(encabezado)));
    QVERIFY(clase == u"Form17" || encabezado.startsWith(titulo));

    // The PDF as a reader's tools see it: the heading is text, not a picture or a hole.
    QProcess pdftotext;
    pdftotext.start(u"pdftotext"_s, {u"-enc"_s, u"UTF-8"_s, u"" RADIOLOG_MANUAL_PDF ""_s, u"-"_s});
    QVERIFY(pdftotext.waitForFinished(20000));
    QVERIFY2(QString::fromUtf8(pdftotext.readAllStandardOutput()).contains(encabezado),
             qPrintable(u"AyudaRadiolog2.pdf no dice «%1»"_s.arg(encabezado)));
}

void TestManual::todasLasVentanas()
{
    // Every window class declared in the window library, against those tried above.
    QStringList declaradas;
    static const QRegularExpression clase(u"^class (Form\\d+|Ventana\\w+)\\b[^;]*$"_s,
                                          QRegularExpression::MultilineOption);
    for (QDirIterator it(u"" RADIOLOG_FUENTES "/src/gui"_s, {u"*.h"_s}, QDir::Files,
                         QDirIterator::Subdirectories);
         it.hasNext();)
        for (auto m = clase.globalMatch(Leer(it.next())); m.hasNext();)
            declaradas << m.next().captured(1);
    declaradas.sort();
    probadas_.sort();
    QCOMPARE(probadas_, declaradas);
}

QTEST_MAIN(TestManual)
#include "test_manual.moc"
