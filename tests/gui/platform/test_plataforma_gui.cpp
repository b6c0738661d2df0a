// The desktop services that show windows or play sound: the message boxes and the input
// box in Spanish through Qt's own translations, what the desktop is asked to open, and
// the audio player on a machine that may have no sound at all.

#include "gui/platform/DialogosQt.h"
#include "gui/platform/EscritorioQt.h"
#include "gui/platform/ReproductorQt.h"
#include "support/Modales.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QInputDialog>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

namespace {

QStringList TextosDeBotones(const QList<QAbstractButton *> &botones)
{
    QStringList textos;
    for (auto *b : botones)
        textos << b->text().remove(u'&');
    textos.sort();
    return textos;
}

// A file of the test's folder with the given bytes; a null content leaves no file.
QString Archivo(const QTemporaryDir &carpeta, const QString &nombre, const QByteArray &contenido)
{
    const QString ruta = carpeta.filePath(nombre);
    QFile f(ruta);
    if (!contenido.isNull() && f.open(QIODevice::WriteOnly))
        f.write(contenido);
    return ruta;
}

} // namespace

class TestPlataformaGui : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cajas_data();
    void cajas();
    void entrada();
    void direccionParaAbrir();
    void reproductor();

private:
    QTranslator traductor_;
};

void TestPlataformaGui::initTestCase()
{
    // As main.cpp does: the standard buttons speak Spanish through Qt's translations.
    QVERIFY(traductor_.load(QStringLiteral("qtbase_es"),
                            QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    QVERIFY(QCoreApplication::installTranslator(&traductor_));
}

// How a row calls the service: the answer of a question, false for a plain message.
using Llamada = bool (*)(Dialogos &, const QString &);
Q_DECLARE_METATYPE(Llamada)

void TestPlataformaGui::cajas_data()
{
    QTest::addColumn<Llamada>("llamada");
    QTest::addColumn<QMessageBox::Icon>("icono");
    QTest::addColumn<QString>("botones"); // the default one, then all of them sorted
    QTest::addColumn<QString>("accion");  // "Enter", "Escape", or the button to click
    QTest::addColumn<bool>("respuesta");
    const auto fila = [](const char *nombre, Llamada llamada, QMessageBox::Icon icono,
                         const char *botones, const char *accion, bool respuesta) {
        QTest::newRow(nombre) << llamada << icono << QString(botones) << QString(accion)
                              << respuesta;
    };
    const Llamada siNo = [](Dialogos &d, const QString &t) { return d.PreguntaSiNo(t); };
    const Llamada aceptar = [](Dialogos &d, const QString &t) { return d.AceptarCancelar(t); };
    const Llamada aviso = [](Dialogos &d, const QString &t) { return (d.Exclamacion(t), false); };
    const Llamada alto = [](Dialogos &d, const QString &t) { return (d.Alto(t), false); };
    const Llamada info = [](Dialogos &d, const QString &t) { return (d.Informacion(t), false); };
    // No is the default of a question: Enter alone never says Yes.
    fila("Sí/No, Enter", siNo, QMessageBox::Question, "No: No Sí", "Enter", false);
    fila("Sí/No, clic en Sí", siNo, QMessageBox::Question, "No: No Sí", "Sí", true);
    fila("Aceptar/Cancelar, Enter", aceptar, QMessageBox::Question, "Aceptar: Aceptar Cancelar",
         "Enter", true);
    fila("Aceptar/Cancelar, Escape", aceptar, QMessageBox::Question, "Aceptar: Aceptar Cancelar",
         "Escape", false);
    fila("Exclamación", aviso, QMessageBox::Warning, "Aceptar: Aceptar", "Enter", false);
    fila("Alto", alto, QMessageBox::Critical, "Aceptar: Aceptar", "Escape", false);
    fila("Información", info, QMessageBox::Information, "Aceptar: Aceptar", "Enter", false);
}

void TestPlataformaGui::cajas()
{
    QFETCH(Llamada, llamada);
    QFETCH(QString, accion);
    QMessageBox::Icon icono = QMessageBox::NoIcon;
    QString botones, texto, titulo;
    Qt::TextFormat formato = Qt::AutoText;
    CuandoAparezcaModal([&](QWidget *w) {
        auto *box = qobject_cast<QMessageBox *>(w);
        if (!box)
            return;
        icono = box->icon();
        texto = box->text();
        titulo = box->windowTitle();
        formato = box->textFormat();
        if (box->defaultButton())
            botones = box->defaultButton()->text().remove(u'&') + u':';
        botones += u' ' + TextosDeBotones(box->buttons()).join(u' ');
        if (accion == u"Enter" || accion == u"Escape") {
            QTest::keyClick(box, accion == u"Enter" ? Qt::Key_Return : Qt::Key_Escape);
            return;
        }
        for (auto *b : box->buttons()) {
            if (b->text().remove(u'&') == accion)
                b->click();
        }
    });
    DialogosQt d;
    const bool respuesta = llamada(d, QStringLiteral("<b>LU1AA</b> ya está\r\n¿Lo borra?"));
    QTEST(icono, "icono");
    QTEST(botones, "botones");
    QTEST(respuesta, "respuesta");
    // A callsign or remark with markup is shown as typed; CRLF becomes a plain new line.
    QCOMPARE(texto, QStringLiteral("<b>LU1AA</b> ya está\n¿Lo borra?"));
    QCOMPARE(formato, Qt::PlainText);
    QCOMPARE(titulo, TituloPrograma());
}

// The input box proposes its default text and answers what was typed, or nothing.
void TestPlataformaGui::entrada()
{
    for (const bool acepta : {true, false}) {
        QString propuesto, etiqueta, botones;
        CuandoAparezcaModal([&](QWidget *w) {
            auto *caja = qobject_cast<QInputDialog *>(w);
            if (!caja)
                return;
            propuesto = caja->textValue();
            etiqueta = caja->labelText();
            if (auto *b = caja->findChild<QDialogButtonBox *>())
                botones = TextosDeBotones(b->buttons()).join(u' ');
            caja->setTextValue(QStringLiteral("Concurso LU"));
            acepta ? caja->accept() : caja->reject();
        });
        DialogosQt d;
        const auto r = d.Entrada(QStringLiteral("Nombre del log"), {}, QStringLiteral("Log1"));
        QCOMPARE(propuesto, QStringLiteral("Log1"));
        QCOMPARE(etiqueta, QStringLiteral("Nombre del log"));
        QCOMPARE(botones, QStringLiteral("Aceptar Cancelar"));
        QCOMPARE(r, acepta ? std::optional<QString>(QStringLiteral("Concurso LU")) : std::nullopt);
    }
}

// An address keeps its scheme, "www." is taken as http, anything else is a local file.
void TestPlataformaGui::direccionParaAbrir()
{
    const QString qrz = QStringLiteral("https://www.qrz.com/db/LU1AA?x=1");
    QCOMPARE(DireccionParaAbrir(qrz), QUrl(qrz));
    QCOMPARE(DireccionParaAbrir("www.qrz.com"), QUrl("http://www.qrz.com"));
    QCOMPARE(DireccionParaAbrir("mailto:lu1aa@example.com"), QUrl("mailto:lu1aa@example.com"));
    QCOMPARE(DireccionParaAbrir("  /home/op/log 2024.adi "),
             QUrl::fromLocalFile("/home/op/log 2024.adi"));
    QCOMPARE(DireccionParaAbrir(""), QUrl());
}

// A missing or unplayable file opens nothing and the commands do nothing; a real one
// knows its length and, when the machine can play it, ends once per play.
void TestPlataformaGui::reproductor()
{
    QTemporaryDir carpeta;
    for (const QString &malo : {Archivo(carpeta, QStringLiteral("no-existe.wav"), {}),
                                Archivo(carpeta, QStringLiteral("cq.wav"), "no es sonido\r\n")}) {
        ReproductorQt r;
        QSignalSpy fin(&r, &Reproductor::Terminado);
        QVERIFY(!r.AbrirArchivo(malo));
        QCOMPARE(r.Longitud(), 0);
        r.Reproducir();
        r.Rebobinar();
        QCOMPARE(r.ModoActual(), Reproductor::Modo::Cerrado);
        QTest::qWait(50);
        QCOMPARE(fin.size(), 0);
    }

    ReproductorQt r;
    QSignalSpy fin(&r, &Reproductor::Terminado);
    QSignalSpy estado(&r, &Reproductor::Estado);
    // 600 ms of silence: PCM, mono, 8 kHz, 16 bits, so 9600 bytes of data after the header.
    const QByteArray wav = QByteArray::fromHex("52494646a425000057415645666d74201000000001000100"
                                               "401f0000803e0000020010006461746180250000") +
                           QByteArray(9600, '\0');
    // A bad file first: the operator who once chose a broken file can still use a good one.
    QVERIFY(!r.AbrirArchivo(Archivo(carpeta, QStringLiteral("roto.wav"), "no es sonido\r\n")));
    if (!r.AbrirArchivo(Archivo(carpeta, QStringLiteral("silencio.wav"), wav)))
        QSKIP("No media backend here can load a WAV file");
    QVERIFY(qAbs(r.Longitud() - 600) <= 50);
    QCOMPARE(r.ModoActual(), Reproductor::Modo::Detenido);
    r.Reproducir();
    // Without a sound device the file may never play; what matters then is that nothing
    // breaks. When it does play, it ends stopped, with its last state at the end.
    if (fin.wait(3000)) {
        QCOMPARE(r.ModoActual(), Reproductor::Modo::Detenido);
        QCOMPARE(estado.last(), (QVariantList{r.Longitud(), r.Longitud()}));
        r.Rebobinar();
        r.Reproducir();
        QVERIFY(fin.wait(3000));
        QCOMPARE(fin.size(), 2);
    }
    r.Cerrar();
    QCOMPARE(r.ModoActual(), Reproductor::Modo::Cerrado);
    QCOMPARE(r.Longitud(), 0);
}

QTEST_MAIN(TestPlataformaGui)
#include "test_plataforma_gui.moc"
