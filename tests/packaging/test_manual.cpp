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
#include "gui/nationallog/Form14.h"
#include "gui/nationallog/VentanaSubida.h"
#include "gui/satellites/Form11.h"
#include "support/ContextoPrueba.h"

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <functional>
#include <memory>
#include <type_traits>

using namespace Qt::StringLiterals;
using Fabrica = std::function<QWidget *(Contexto &)>;

namespace {

QString Leer(const QString &archivo)
{
    QFile f(archivo);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

// A window built as the program builds it, with nobody to tell of its changes.
template<class Ventana> QWidget *Hacer(Contexto &c)
{
    if constexpr (std::is_constructible_v<Ventana, Contexto &, std::function<void()>>)
        return new Ventana(c, [] {});
    else if constexpr (std::is_constructible_v<Ventana, Contexto &>)
        return new Ventana(c);
    else
        return new Ventana;
}

} // namespace

class TestManual : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // How the window is built; the fixed part of its caption as the operator sees it; the
    // heading of its section, which is that caption and what follows it.
    void ventanas_data()
    {
        QTest::addColumn<Fabrica>("fabrica");
        QTest::addColumn<QString>("titulo");
        QTest::addColumn<QString>("encabezado");
        const auto fila = [](Fabrica f, const QString &titulo, const QString &resto = {}) {
            QTest::newRow(qPrintable(titulo + resto)) << f << titulo << titulo + resto;
        };
        fila(Hacer<Form1>, u"Carancho Radiolog"_s, u" (la ventana principal)"_s);
        fila(Hacer<Form2>, u"Configuración"_s);
        fila(Hacer<Form3>, u"Abrir Log ..."_s);
        fila(Hacer<Form5>, u"Edición de QSO #"_s, u" (corregir un QSO)"_s);
        fila(Hacer<Form10>, u"Acerca de ..."_s);
        fila(Hacer<Form11>, u"Editar Satélites ..."_s);
        fila(Hacer<Form6>, u"Exportar ..."_s, u" (buscar y exportar)"_s);
        fila(Hacer<Form15>, u"Back Up ..."_s, u" (copia en ADIF)"_s);
        fila(Hacer<Form12>, u"Importar ADIF ..."_s);
        fila(Hacer<Form8>, u"Logs Cabrillos ..."_s);
        fila(Hacer<Form4>, u"Cabrillo ..."_s, u" (anotar un concurso)"_s);
        fila(Hacer<Form9>, u"Encabezado"_s, u" de un concurso (el archivo Cabrillo)"_s);
        fila(Hacer<Form7>, u"Edición de Registro #"_s, u" (corregir un QSO de concurso)"_s);
        fila(Hacer<Form18>, u"Carancho Radiolog"_s, u" (el cierre)"_s);
        fila(Hacer<Form14>, u"Argentina en LbN"_s);
        fila(Hacer<Form33>, u"Libro Nacional"_s, u" (la consulta de una señal)"_s);
        fila(Hacer<VentanaSubida>, u"Subida a LbN"_s);
        // The history's caption is the callsign looked for, so its heading says what it is.
        QTest::newRow("Form17") << Fabrica([](Contexto &) {
            auto *f = new Form17;
            f->Llenar(u"LU7HF"_s, {});
            return f;
        }) << u"LU7HF"_s << u"La historia de un corresponsal"_s;
    }

    void ventanas()
    {
        QFETCH(Fabrica, fabrica);
        QFETCH(QString, titulo);
        QFETCH(QString, encabezado);
        ContextoPrueba prueba;
        std::unique_ptr<QWidget> ventana(fabrica(prueba.ctx()));
        probadas_ << QString::fromLatin1(ventana->metaObject()->className());
        QVERIFY2(ventana->windowTitle().startsWith(titulo), qPrintable(ventana->windowTitle()));

        const QString manual = Leer(u"" RADIOLOG_FUENTES "/docs/manual.md"_s);
        QVERIFY2(manual.contains(u"\n## "_s + encabezado + u'\n'),
                 qPrintable(u"docs/manual.md no tiene la sección «## %1»"_s.arg(encabezado)));

        // The PDF as a reader's tools see it: the heading is text, not a picture or a hole.
        QProcess pdftotext;
        pdftotext.start(u"pdftotext"_s,
                        {u"-enc"_s, u"UTF-8"_s, u"" RADIOLOG_MANUAL_PDF ""_s, u"-"_s});
        QVERIFY(pdftotext.waitForFinished(20000));
        QVERIFY2(QString::fromUtf8(pdftotext.readAllStandardOutput()).contains(encabezado),
                 qPrintable(u"AyudaRadiolog2.pdf no dice «%1»"_s.arg(encabezado)));
    }

    // Every window class declared in the window library, against those tried above.
    void todasLasVentanas()
    {
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

private:
    QStringList probadas_;
};

QTEST_MAIN(TestManual)
#include "test_manual.moc"
