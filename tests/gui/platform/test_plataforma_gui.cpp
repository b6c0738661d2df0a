// SPDX-License-Identifier: GPL-3.0-or-later
// The message boxes in Spanish through Qt's own translations, under the program's title,
// with the text shown as written.
#include "gui/platform/DialogosQt.h"
#include "support/Modales.h"

#include <QLibraryInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTranslator>

using namespace Qt::StringLiterals;

// A callsign or a remark with markup, in a message written with CRLF as the files are.
const QString Texto = u"<b>LU1AA</b> ya está\r\n¿Lo borra?"_s;

class TestPlataformaGui : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cajas_data();
    void cajas();
};

void TestPlataformaGui::cajas_data()
{
    QTest::addColumn<int>("caja");     // 0 Sí/No, 1 Aceptar/Cancelar, 2 a warning
    QTest::addColumn<QString>("clic"); // empty: Enter
    QTest::addColumn<bool>("respuesta");
    // No is the default of a question: Enter alone never says Yes.
    QTest::newRow("Sí/No, Enter") << 0 << "" << false;
    QTest::newRow("Sí/No, clic en Sí") << 0 << "Sí" << true;
    QTest::newRow("Aceptar/Cancelar, Enter") << 1 << "" << true;
    QTest::newRow("Aceptar/Cancelar, Cancelar") << 1 << "Cancelar" << false;
    QTest::newRow("Exclamación") << 2 << "" << false;
}

void TestPlataformaGui::cajas()
{
    // As main.cpp does: the standard buttons speak Spanish through Qt's translations.
    static QTranslator traductor;
    static const bool instalado =
        traductor.load(u"qtbase_es"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)) &&
        QCoreApplication::installTranslator(&traductor);
    QVERIFY(instalado);
    QFETCH(QString, clic);
    QStringList visto;
    CuandoAparezcaModal([&](QWidget *w) {
        auto *caja = static_cast<QMessageBox *>(w);
        QStringList botones;
        for (auto *b : caja->buttons())
            botones << b->text().remove(u'&');
        visto = QStringList{caja->windowTitle(), caja->text(), QString::number(caja->textFormat()),
                            caja->defaultButton()->text().remove(u'&')};
        const qsizetype i = botones.indexOf(clic);
        i < 0 ? QTest::keyClick(caja, Qt::Key_Return) : caja->buttons().at(i)->click();
        botones.sort();
        visto << botones.join(u' ');
    });
    DialogosQt d;
    QFETCH(int, caja);
    QTEST(caja == 0   ? d.PreguntaSiNo(Texto)
          : caja == 1 ? d.AceptarCancelar(Texto)
                      : (d.Exclamacion(Texto), false),
          "respuesta");
    const QStringList botones[] = {
        {"No", "No Sí"}, {"Aceptar", "Aceptar Cancelar"}, {"Aceptar", "Aceptar"}};
    // A callsign or a remark with markup is shown as typed; CRLF becomes a plain new line.
    QCOMPARE(visto, QStringList({TituloPrograma(), u"<b>LU1AA</b> ya está\n¿Lo borra?"_s,
                                 QString::number(Qt::PlainText)}) +
                        botones[caja]);
}

QTEST_MAIN(TestPlataformaGui)
#include "test_plataforma_gui.moc"
