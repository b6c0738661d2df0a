// SPDX-License-Identifier: GPL-3.0-or-later
// The lookup panel from the main window's buttons: what it shows, its copy buttons once
// each, Esc that only hides it and the close box that restores it.

#include "gui/lookup/Form33.h"
#include "gui/main/Form1.h"
#include "support/ContextoPrueba.h"
#include "support/ServidorHttpPrueba.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class TestForm33 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void panel()
    {
        ServidorHttpPrueba servidor;
        servidor.Responder(u"/php/carancho_lbn.php?qrz=LU1ABC"_s,
                           "<call>lu1abc</call><name>Ana</name><grid>GF05</grid>"
                           "<email>a@b</email><ultimo>2024</ultimo>");
        ContextoPrueba prueba(servidor.Base(), true);
        prueba->RelojActivo = true;
        Form1 principal(prueba.ctx());
        ConectarConsultas(principal, prueba.ctx(), nullptr);
        principal.Corresponsal->setText(u"LU1ABC"_s);
        principal.Command14->click();
        Form33 *f = principal.findChild<Form33 *>();
        QTRY_VERIFY(f->isVisible());
        QCOMPARE(f->windowTitle(), u"Libro Nacional"_s);
        QVERIFY(f->Command4->geometry().right() < f->width()); // the buttons in view
        QCOMPARE(f->Text1->toPlainText(),
                 u"LU1ABC\nAna\nGrid Locator: GF05\na@b\núltimo QSO: 2024"_s);

        // The second copy to the remarks replaces the first, line end and all.
        f->Command1->click();
        QCOMPARE(principal.Obs->text(), u"Ana\r\n"_s);
        f->Command2->click();
        f->Command4->click();
        QCOMPARE(principal.Obs->text(), u"a@b\r\n"_s);
        QCOMPARE(principal.Text2->text(), u"GF05"_s);
        QTest::keyClick(f, Qt::Key_Escape);
        QVERIFY(!f->isVisible());

        // An unknown callsign: the old values stay behind the buttons, still used up.
        principal.Corresponsal->setText(u"LU9ZZ"_s);
        principal.Command14->click();
        QTRY_VERIFY(f->isVisible());
        QCOMPARE(f->Text1->toPlainText(), u"LU9ZZ No está en Lbn!"_s);
        QVERIFY(!f->Command1->isEnabled() && !f->Command4->isEnabled());
        QCOMPARE(f->Label3->text(), u"GF05"_s);
        f->close();
        QVERIFY(f->Command1->isEnabled() && f->Command4->isEnabled());

        principal.Command12->click();
        QTRY_COMPARE(servidor.pedidos.last().crudo, "/xml.php?u=xx9qz&p=31415926");
    }
};

QTEST_MAIN(TestForm33)
#include "test_form33.moc"
