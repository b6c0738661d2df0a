// SPDX-License-Identifier: GPL-3.0-or-later
// The edit window on a stored QSO: saved, refused, deleted, over a store that fails, the
// grids as typed, and what a screen reader hears.
#include "gui/editing/Form5.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using Tipo = LlamadaDialogo::Tipo;
using namespace Qt::StringLiterals;

namespace {

const QString Log = u"Pruebas"_s;

// Out of the 80 m segment on purpose: loading the window must raise no band warning.
RegistroQSO QSO()
{
    RegistroQSO q;
    q.Estacion = "LU5XX", q.Modo = "SSB", q.Fecha = "01/01/2024", q.Hora = "10:00:00";
    q.Banda = "80m", q.Frecuencia = "3.100", q.RSE = "59", q.RSR = "57";
    q.MyCall = u"LU1AAA"_s, q.Operador = u"LU2BBB"_s;
    return q;
}

// An edit window alone, shown without its modal loop on one stored QSO as the main window
// opens it, counting the refreshes of the view it asks for.
struct Edicion
{
    Edicion()
        : id(Hecho(p->almacen().AgregarQSO(QSO(), Log)))
    {
        Hecho(p->almacen().MarcarLbN(id, 2)); // uploaded and confirmed
        p->OrigenEdicion = u"Form1"_s;
        e.Cargar(Guardada(), true);
        e.show();
        QApplication::setActiveWindow(&e);
        static_cast<void>(QTest::qWaitForWindowActive(&e));
    }
    FilaQSO Guardada() { return p->almacen().QSOPorId(Log, id).value_or(FilaQSO()); }
    DialogosFalso &d() { return *p.falsos.dialogos; }

    ContextoPrueba p;
    qint64 id;
    int refrescos = 0;
    Form5 e{p.ctx(), [this] { ++refrescos; }};
};

} // namespace

class TestForm5 : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void mensajes_data()
    {
        QTest::addColumn<QStringList>("cambios"); // "field=value", a line edit last
        QTest::addColumn<bool>("guardar");        // otherwise the last field is left with Tab
        QTest::addColumn<QString>("mensaje");     // empty: none
        QTest::addColumn<QString>("foco");
        QTest::addColumn<QString>("banda");
        const auto fila = [](const char *nombre, const QStringList &cambios, bool guardar,
                             const char *mensaje, const char *foco, const char *banda = "80m") {
            QTest::newRow(nombre) << cambios << guardar << QString::fromUtf8(mensaje)
                                  << QString(foco) << QString(banda);
        };
        const char *fecha = "Error Fecha!\r\nFormato: DD/MM/AAAA";
        fila("al salir: fecha buena", {"Text4=29/02/2024"}, false, "", "Text5");
        fila("al salir: 29 de febrero común", {"Text4=29/02/2023"}, false, fecha, "Text4");
        // The main window takes a grid of four characters; this one does not.
        fila("al salir: grilla de cuatro", {"Text10=FF78"}, false, "Grilla incorrecta!", "Text10");
        fila("al salir: khz vacío", {"mhz=10", "Text9="}, false, "", "Text10", "30m");
        // The satellite field is hidden on this QSO: it comes up for the name, asked first.
        fila("satélite sin nombre", {"Combo2=Sat", "Text2=LU1AAA", "Text7="}, true,
             "Debe agregar el nombre del Satélite", "Text12");
        fila("propia estación", {"Text2=LU1AAA"}, true, "QSO con la propia estación??", "Text2");
        fila("fecha que no es", {"Text4=31/04/2024"}, true, fecha, "Text4");
    }

    void mensajes()
    {
        QFETCH(QStringList, cambios);
        QFETCH(QString, mensaje);
        Edicion v;
        const FilaQSO antes = v.Guardada();
        QLineEdit *ultimo = nullptr;
        for (const QString &cambio : cambios) {
            const QString campo = cambio.section(u'=', 0, 0), valor = cambio.section(u'=', 1);
            if (auto *c = v.e.findChild<QComboBox *>(campo))
                c->setCurrentText(valor);
            else
                (ultimo = v.e.findChild<QLineEdit *>(campo))->setText(valor);
        }
        ultimo->setFocus();
        QFETCH(bool, guardar);
        guardar ? v.e.Command1->click() : QTest::keyClick(ultimo, Qt::Key_Tab);
        QCOMPARE(v.d().Textos(), mensaje.isEmpty() ? QStringList() : QStringList{mensaje});
        QVERIFY(v.e.isVisible() && QApplication::focusWidget());
        QTEST(QApplication::focusWidget()->objectName(), "foco");
        QTEST(v.e.Label11->text(), "banda");
        QCOMPARE(v.Guardada(), antes);
    }

    void guardarYEliminar_data()
    {
        // The button, the answer to the question, and "falla": the store closed under the window.
        QTest::addColumn<QString>("pasos");
        for (const char *pasos :
             {"guardar", "eliminar no", "eliminar sí", "guardar falla", "eliminar sí falla"})
            QTest::newRow(pasos) << QString::fromUtf8(pasos);
    }

    void guardarYEliminar()
    {
        QFETCH(QString, pasos);
        const bool eliminar = pasos.startsWith(u"eliminar"_s), si = pasos.contains(u"sí"_s),
                   falla = pasos.endsWith(u"falla"_s);
        Edicion v;
        FilaQSO esperada = v.Guardada();
        // The id is kept by the window and shown in its title only.
        QCOMPARE(v.e.windowTitle(), u"Edición de QSO #%1"_s.arg(v.id));
        v.e.Text2->setText(u"LU1GP"_s), v.e.Text8->setText(u"it's fixed"_s);
        if (falla)
            v.p->almacen().Cerrar();
        v.d().respuestasSiNo.enqueue(si);
        (eliminar ? v.e.Command2 : v.e.Command1)->click();
        const QString pregunta = u"Elimina el QSO #%1?\r\n\r\nLos datos no se podrán recuperar!"_s;
        QCOMPARE(v.d().Textos(Tipo::PreguntaSiNo).join(u'|'),
                 eliminar ? pregunta.arg(v.id) : QString());
        // What could not be done, then the store's own words.
        const QString fallo =
            eliminar ? u"No se pudo eliminar el QSO #%1."_s : u"No se pudo guardar el QSO #%1."_s;
        QCOMPARE(v.d().Textos(Tipo::Alto).join(u'|').section(u"\r\n"_s, 0, 0),
                 falla ? fallo.arg(v.id) : QString());
        QVERIFY(!v.e.isVisible());
        QCOMPARE(v.refrescos, 1);
        if (falla)
            return;
        if (!eliminar) // saved: the edits, and back to "not uploaded"
            esperada.Estacion = u"LU1GP"_s, esperada.Argento = u"Formosa"_s,
            esperada.Obs = u"it's fixed"_s, esperada.LbN.clear();
        QCOMPARE(v.Guardada(), eliminar && si ? FilaQSO() : esperada);
    }

    void grillaAlTeclear_data()
    {
        QTest::addColumn<QString>("tecleado");
        QTest::addColumn<QString>("queda");
        // As in the configuration window: a last character of the wrong kind for its place is
        // cut, and a small letter is not a letter A to Z.
        for (const QString fila :
             {"FF78AB>FF78AB", "ff78ab>", "FF78ab>FF78", "7FF78>FF78", "FFA78>FF78"})
            QTest::newRow(qPrintable(fila)) << fila.section(u'>', 0, 0) << fila.section(u'>', 1);
    }

    void grillaAlTeclear()
    {
        QFETCH(QString, tecleado);
        Edicion v;
        for (QLineEdit *grilla : {v.e.Text10, v.e.Text11}) {
            grilla->setFocus();
            QTest::keyClicks(grilla, tecleado);
            QTEST(grilla->text(), "queda");
        }
    }

    void valoresParaElLector()
    {
        Edicion v;
        // The band and the service's state are values: read as they show, and no caption
        // points at them; a field is named by its caption.
        for (QLabel *valor : {v.e.Label11, v.e.subidoALbn, v.e.ConfALbn}) {
            QVERIFY2(valor->accessibleName().isEmpty(), qPrintable(valor->objectName()));
            QCOMPARE(QAccessible::queryAccessibleInterface(valor)->text(QAccessible::Name),
                     valor->text());
            for (const QLabel *rotulo : v.e.findChildren<QLabel *>())
                QVERIFY2(rotulo->buddy() != valor, qPrintable(rotulo->text()));
        }
        QCOMPARE(QAccessible::queryAccessibleInterface(v.e.Text10)->text(QAccessible::Name),
                 u"Mi Grilla"_s);
    }
};

QTEST_MAIN(TestForm5)
#include "test_form5.moc"
