// The desktop services that show windows or play sound: the message boxes and the input
// box in Spanish through Qt's own translations, what the desktop is asked to open, and
// the audio player on a machine that may have no sound at all.

#include "platform/DialogosQt.h"
#include "platform/EscritorioQt.h"
#include "platform/ReproductorQt.h"
#include "support/Modales.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QInputDialog>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>
#include <QtEndian>

namespace {

QStringList TextosDeBotones(const QList<QAbstractButton *> &botones)
{
    QStringList textos;
    for (auto *b : botones)
        textos << b->text().remove(QLatin1Char('&'));
    textos.sort();
    return textos;
}

// A WAV file of silence: 16-bit mono at 8 kHz.
QByteArray WavDeSilencio(int milisegundos)
{
    const quint32 muestras = 8000u * quint32(milisegundos) / 1000u;
    const quint32 datos = muestras * 2u;
    QByteArray wav;
    auto u32 = [&](quint32 v) {
        v = qToLittleEndian(v);
        wav.append(reinterpret_cast<const char *>(&v), 4);
    };
    auto u16 = [&](quint16 v) {
        v = qToLittleEndian(v);
        wav.append(reinterpret_cast<const char *>(&v), 2);
    };
    wav += "RIFF";
    u32(36 + datos);
    wav += "WAVEfmt ";
    u32(16);
    u16(1);     // PCM
    u16(1);     // mono
    u32(8000);  // rate
    u32(16000); // bytes per second
    u16(2);     // block align
    u16(16);    // bits
    wav += "data";
    u32(datos);
    wav.append(QByteArray(int(datos), '\0'));
    return wav;
}

} // namespace

class TestPlataformaGui : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cajas_data();
    void cajas();
    void textoPlanoYTitulo();
    void entrada_data();
    void entrada();
    void direccionParaAbrir_data();
    void direccionParaAbrir();
    void reproductorSinArchivoUtil_data();
    void reproductorSinArchivoUtil();
    void reproductorWav();

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

enum class Caja { Exclamacion, Alto, Informacion, PreguntaSiNo, AceptarCancelar };

void TestPlataformaGui::cajas_data()
{
    QTest::addColumn<Caja>("caja");
    QTest::addColumn<QStringList>("botones");
    QTest::addColumn<QMessageBox::Icon>("icono");
    QTest::addColumn<QString>("porDefecto");
    QTest::addColumn<QString>("accion"); // "Enter", "Escape", or the text of a button to click
    QTest::addColumn<bool>("respuesta");

    const QStringList siNo{QStringLiteral("No"), QStringLiteral("Sí")};
    const QStringList aceptarCancelar{QStringLiteral("Aceptar"), QStringLiteral("Cancelar")};
    const QStringList aceptar{QStringLiteral("Aceptar")};

    // No is the default of a question: Enter alone never says Yes.
    QTest::newRow("Sí/No, Enter") << Caja::PreguntaSiNo << siNo << QMessageBox::Question << "No"
                                  << "Enter" << false;
    QTest::newRow("Sí/No, Escape") << Caja::PreguntaSiNo << siNo << QMessageBox::Question << "No"
                                   << "Escape" << false;
    QTest::newRow("Sí/No, clic en Sí")
        << Caja::PreguntaSiNo << siNo << QMessageBox::Question << "No"
        << "Sí" << true;
    QTest::newRow("Aceptar/Cancelar, Enter")
        << Caja::AceptarCancelar << aceptarCancelar << QMessageBox::Question << "Aceptar"
        << "Enter" << true;
    QTest::newRow("Aceptar/Cancelar, Escape")
        << Caja::AceptarCancelar << aceptarCancelar << QMessageBox::Question << "Aceptar"
        << "Escape" << false;
    QTest::newRow("Exclamación") << Caja::Exclamacion << aceptar << QMessageBox::Warning
                                 << "Aceptar"
                                 << "Enter" << false;
    QTest::newRow("Alto") << Caja::Alto << aceptar << QMessageBox::Critical << "Aceptar"
                          << "Escape" << false;
    QTest::newRow("Información") << Caja::Informacion << aceptar << QMessageBox::Information
                                 << "Aceptar"
                                 << "Enter" << false;
}

void TestPlataformaGui::cajas()
{
    QFETCH(Caja, caja);
    QFETCH(QString, accion);

    QStringList botones;
    QMessageBox::Icon icono = QMessageBox::NoIcon;
    QString porDefecto;
    bool vista = false;
    CuandoAparezcaModal([&](QWidget *w) {
        auto *box = qobject_cast<QMessageBox *>(w);
        if (!box)
            return;
        vista = true;
        botones = TextosDeBotones(box->buttons());
        icono = box->icon();
        if (box->defaultButton())
            porDefecto = box->defaultButton()->text().remove(QLatin1Char('&'));
        if (accion == QLatin1String("Enter")) {
            QTest::keyClick(box, Qt::Key_Return);
        } else if (accion == QLatin1String("Escape")) {
            QTest::keyClick(box, Qt::Key_Escape);
        } else {
            for (auto *b : box->buttons())
                if (b->text().remove(QLatin1Char('&')) == accion)
                    b->click();
        }
    });

    DialogosQt dialogos;
    const QString texto = QStringLiteral("¿Borra el QSO?");
    bool respuesta = false;
    switch (caja) {
    case Caja::Exclamacion:
        dialogos.Exclamacion(texto);
        break;
    case Caja::Alto:
        dialogos.Alto(texto);
        break;
    case Caja::Informacion:
        dialogos.Informacion(texto);
        break;
    case Caja::PreguntaSiNo:
        respuesta = dialogos.PreguntaSiNo(texto);
        break;
    case Caja::AceptarCancelar:
        respuesta = dialogos.AceptarCancelar(texto);
        break;
    }
    QVERIFY(vista);
    QTEST(botones, "botones");
    QTEST(icono, "icono");
    QTEST(porDefecto, "porDefecto");
    QTEST(respuesta, "respuesta");
}

void TestPlataformaGui::textoPlanoYTitulo()
{
    QString texto, titulo;
    Qt::TextFormat formato = Qt::AutoText;
    auto mirar = [&](QWidget *w) {
        auto *box = qobject_cast<QMessageBox *>(w);
        if (!box)
            return;
        texto = box->text();
        titulo = box->windowTitle();
        formato = box->textFormat();
        box->accept();
    };

    DialogosQt dialogos;
    // A remark with markup is shown as typed; CRLF line ends become plain new lines.
    CuandoAparezcaModal(mirar);
    dialogos.Exclamacion(QStringLiteral("<b>LU1AA</b> ya está\r\nen el log"));
    QCOMPARE(texto, QStringLiteral("<b>LU1AA</b> ya está\nen el log"));
    QCOMPARE(formato, Qt::PlainText);
    QCOMPARE(titulo, TituloPrograma());

    CuandoAparezcaModal(mirar);
    dialogos.Alto(QStringLiteral("x"), QStringLiteral("Importar ADIF"));
    QCOMPARE(titulo, QStringLiteral("Importar ADIF"));
}

void TestPlataformaGui::entrada_data()
{
    QTest::addColumn<bool>("acepta");
    QTest::addColumn<QString>("escrito");
    QTest::addColumn<std::optional<QString>>("respuesta");
    QTest::newRow("acepta lo propuesto")
        << true << QString() << std::optional<QString>(QStringLiteral("Log1"));
    QTest::newRow("acepta lo escrito") << true << QStringLiteral("Concurso LU")
                                       << std::optional<QString>(QStringLiteral("Concurso LU"));
    QTest::newRow("cancela") << false << QStringLiteral("Concurso LU") << std::optional<QString>();
}

void TestPlataformaGui::entrada()
{
    QFETCH(bool, acepta);
    QFETCH(QString, escrito);

    QStringList botones;
    QString propuesto, etiqueta;
    CuandoAparezcaModal([&](QWidget *w) {
        auto *caja = qobject_cast<QInputDialog *>(w);
        if (!caja)
            return;
        propuesto = caja->textValue();
        etiqueta = caja->labelText();
        if (auto *caja2 = caja->findChild<QDialogButtonBox *>())
            botones = TextosDeBotones(caja2->buttons());
        if (!escrito.isEmpty())
            caja->setTextValue(escrito);
        acepta ? caja->accept() : caja->reject();
    });
    DialogosQt dialogos;
    const auto r = dialogos.Entrada(QStringLiteral("Nombre del log"), {}, QStringLiteral("Log1"));
    QCOMPARE(propuesto, QStringLiteral("Log1"));
    QCOMPARE(etiqueta, QStringLiteral("Nombre del log"));
    QCOMPARE(botones, (QStringList{QStringLiteral("Aceptar"), QStringLiteral("Cancelar")}));
    QTEST(r, "respuesta");
}

void TestPlataformaGui::direccionParaAbrir_data()
{
    QTest::addColumn<QString>("entrada");
    QTest::addColumn<QUrl>("url");
    QTest::newRow("página") << "http://www.amsat.org.ar/pass.htm"
                            << QUrl(QStringLiteral("http://www.amsat.org.ar/pass.htm"));
    QTest::newRow("página con consulta")
        << "https://www.qrz.com/db/LU1AA?x=1"
        << QUrl(QStringLiteral("https://www.qrz.com/db/LU1AA?x=1"));
    QTest::newRow("www sin esquema") << "www.qrz.com" << QUrl(QStringLiteral("http://www.qrz.com"));
    QTest::newRow("archivo") << "/home/op/log 2024.adi"
                             << QUrl::fromLocalFile(QStringLiteral("/home/op/log 2024.adi"));
    QTest::newRow("archivo con espacios alrededor")
        << "  /home/op/a.txt " << QUrl::fromLocalFile(QStringLiteral("/home/op/a.txt"));
    QTest::newRow("mailto") << "mailto:lu1aa@example.com"
                            << QUrl(QStringLiteral("mailto:lu1aa@example.com"));
    QTest::newRow("vacío") << "" << QUrl();
}

void TestPlataformaGui::direccionParaAbrir()
{
    QFETCH(QString, entrada);
    QTEST(DireccionParaAbrir(entrada), "url");
}

void TestPlataformaGui::reproductorSinArchivoUtil_data()
{
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<QByteArray>("contenido"); // empty name: the file does not exist
    QTest::newRow("no existe") << QString() << QByteArray();
    QTest::newRow("texto con nombre de WAV") << "cq.wav" << QByteArray("esto no es sonido\r\n");
    QTest::newRow("vacío") << "vacio.wav" << QByteArray();
}

void TestPlataformaGui::reproductorSinArchivoUtil()
{
    QFETCH(QString, nombre);
    QFETCH(QByteArray, contenido);
    QTemporaryDir carpeta;
    QString archivo = carpeta.filePath(QStringLiteral("no-existe.wav"));
    if (!nombre.isEmpty()) {
        archivo = carpeta.filePath(nombre);
        QFile f(archivo);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(contenido);
    }
    ReproductorQt reproductor;
    QSignalSpy fin(&reproductor, &Reproductor::Terminado);
    QVERIFY(!reproductor.AbrirArchivo(archivo));
    QCOMPARE(reproductor.Longitud(), 0);
    QCOMPARE(reproductor.ModoActual(), Reproductor::Modo::Cerrado);
    // Commands on nothing do nothing.
    reproductor.Reproducir();
    reproductor.Rebobinar();
    reproductor.Detener();
    QCOMPARE(reproductor.ModoActual(), Reproductor::Modo::Cerrado);
    QTest::qWait(50);
    QCOMPARE(fin.size(), 0);
}

void TestPlataformaGui::reproductorWav()
{
    QTemporaryDir carpeta;
    const QString archivo = carpeta.filePath(QStringLiteral("cq.wav"));
    {
        QFile f(archivo);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(WavDeSilencio(600));
    }
    ReproductorQt reproductor;
    if (!reproductor.AbrirArchivo(archivo))
        QSKIP("No media backend here can load a WAV file");
    QVERIFY(qAbs(reproductor.Longitud() - 600) <= 50);
    QCOMPARE(reproductor.ModoActual(), Reproductor::Modo::Detenido);

    QSignalSpy fin(&reproductor, &Reproductor::Terminado);
    QSignalSpy estado(&reproductor, &Reproductor::Estado);
    reproductor.Reproducir();
    // Without a sound device the file may never play; what matters then is that nothing
    // breaks. When it does play, it ends once, stopped, with its last state at the end.
    if (fin.wait(3000)) {
        QCOMPARE(fin.size(), 1);
        QCOMPARE(reproductor.ModoActual(), Reproductor::Modo::Detenido);
        QVERIFY(!estado.isEmpty());
        QCOMPARE(estado.last().at(0).toLongLong(), reproductor.Longitud());
        QCOMPARE(estado.last().at(1).toLongLong(), reproductor.Longitud());
        // The CQ caller's round: rewind and play again ends again.
        reproductor.Rebobinar();
        reproductor.Reproducir();
        QVERIFY(fin.wait(3000));
        QCOMPARE(fin.size(), 2);
    }
    reproductor.Cerrar();
    QCOMPARE(reproductor.ModoActual(), Reproductor::Modo::Cerrado);
    QCOMPARE(reproductor.Longitud(), 0);
}

QTEST_MAIN(TestPlataformaGui)
#include "test_plataforma_gui.moc"
