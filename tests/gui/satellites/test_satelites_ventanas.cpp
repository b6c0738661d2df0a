// SPDX-License-Identifier: GPL-3.0-or-later
// Satellites from the main window: the catalogue at the start, "Vía Satélite" and the
// choice of a satellite, and the editor Form11 with its messages and the file it leaves.
#include "core/satellites/Catalogo.h"
#include "gui/main/Form1.h"
#include "gui/satellites/Form11.h"
#include "support/ContextoPrueba.h"
#include "support/TablaDeTextos.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;

namespace {

// A main window over a fresh folder with its editor of satellites. archivos: "name=content"
// separated by "§", written before the start; "\n" in a content is the file's CRLF.
struct Ventana
{
    explicit Ventana(const QString &archivos = {})
    {
        p.Escribir(u"config.ini"_s, "Estacion=LU1AAA\r\nOperador=LU2BBB\r\nLogenUso=Pruebas\r\n");
        for (const QString &a : archivos.split(u'§', Qt::SkipEmptyParts))
            p.Escribir(a.section(u'=', 0, 0),
                       a.section(u'=', 1).replace(u"\n"_s, u"\r\n"_s).toLatin1());
        f = std::make_unique<Form1>(p.ctx());
        for (QTimer *t : {f->Timer1, f->Timer2, f->Timer7})
            t->stop();
        e = ConectarSatelites(*f, p.ctx());
        f->show();
        QApplication::setActiveWindow(f.get());
        static_cast<void>(QTest::qWaitForWindowActive(f.get()));
        f->Timer1_Timer();
    }
    // The frequency, the mode list, the band shown, satellite mode (the box, the width, the
    // panel, the banner and its timer go together) and the four captions.
    QString Estado() const
    {
        const bool ancho = f->Frame1->width() == (8900 + 7) / 15;
        const bool junto = ancho == f->Check2->isChecked() && ancho == f->Frame2->isVisible() &&
                           ancho == f->Timer9->isActive() && ancho == f->Image2->isVisible();
        const QString modo = !junto ? u"a medias"_s : ancho ? u"satélite"_s : u"normal"_s;
        return u"%1.%2 %3 %4 %5 %6|%7|%8|%9"_s.arg(
            f->mhz->currentText(), f->Text1->text(), f->Combo1->currentText(), f->Label7->text(),
            modo, f->Subida->text(), f->Bajada->text(), f->Modo->text(), f->Subtono->text());
    }
    ContextoPrueba p;
    std::unique_ptr<Form1> f;
    Form11 *e = nullptr;
};

// One step in a window: "[caption]" a click on that button or box, "Sí" or "No" the answer to
// the next question, "foco=name" the focus moved there, "name=text" a click on that item of
// a list, chosen in a drop-down list or typed into a field.
void Paso(QWidget &w, DialogosFalso &d, const QString &paso)
{
    const QString nombre = paso.section(u'=', 0, 0), valor = paso.section(u'=', 1);
    if (paso == u"Sí" || paso == u"No")
        d.respuestasSiNo.enqueue(paso == u"Sí");
    else if (paso.startsWith(u'[')) {
        for (QAbstractButton *b : w.findChildren<QAbstractButton *>())
            if (u'[' + b->text() + u']' == paso)
                QTest::mouseClick(b, Qt::LeftButton);
    } else if (nombre == u"foco")
        w.findChild<QWidget *>(valor)->setFocus();
    else if (auto *lista = w.findChild<QListWidget *>(nombre)) {
        QListWidgetItem *item = lista->findItems(valor, Qt::MatchExactly).value(0);
        QVERIFY(item);
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                          lista->visualItemRect(item).center());
    } else if (auto *combo = w.findChild<QComboBox *>(nombre)) {
        combo->setCurrentText(valor);
        Q_EMIT combo->activated(combo->currentIndex());
    } else {
        auto *campo = w.findChild<QLineEdit *>(nombre);
        campo->setFocus();
        campo->clear();
        QTest::keyClicks(campo, valor);
    }
    QApplication::processEvents();
}

// The lines added ("+" and their place) and gone ("-" and their former place).
QString Cambios(const QStringList &antes, const QStringList &despues)
{
    QStringList c;
    for (int i = 0; i < despues.size(); ++i)
        if (!antes.contains(despues[i]))
            c << u"+%1:%2"_s.arg(i).arg(despues[i]);
    for (int i = 0; i < antes.size(); ++i)
        if (!despues.contains(antes[i]))
            c << u"-%1:%2"_s.arg(i).arg(antes[i]);
    return c.join(u'|');
}

} // namespace

class TestSatelitesVentanas : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void modoYEleccion_data()
    {
        // archivos: as the last run left the program folder. pasos, once the clock ticks, as
        // Paso takes them. Then the choice and the number of satellites listed, and
        // Ventana::Estado (the band waits for the kHz field to be left).
        Columnas({"archivos", "pasos", "elegido", "estado"});
        // The captions of the load are those of the last line, with no blank.
        const QString carga = u" Subida:70cm|Bajada:2m|Modo:FM|SubTono:67.0"_s;
        const QString ao91 = u" Subida: 70cm |Bajada: 2m|Modo: FM|SubTono: 67.0"_s;
        Fila("primera vez", {"", "", "/16", "3.650 SSB 80m normal" + carga});
        // The choice and the mode come back with the captions, but leave the frequency alone.
        Fila("recordados",
             {"memsat.ini=SO-50\n§memqSat.cfg=1\n", "", "SO-50/16",
              "3.650 SSB 80m satélite Subida: 2m |Bajada: 70cm|Modo: FM|SubTono: 67.0"});
        Fila("archivo dañado",
             {u"satelites.txt=corta;2m\n\u0001;x;y;z;\n;;;;\nAO-7;70cm;2m;SSB;100.4\nFO-29;2m"_s,
              "", "/1", "3.650 SSB 80m normal Subida:70cm|Bajada:2m|Modo:SSB|SubTono:100.4"});
        Fila("elegir",
             {"", "Combo3=AO-7", "AO-7/16",
              "435.550 SSB 80m normal Subida: 70cm |Bajada: 2m|Modo: SSB|SubTono: 100.4"});
        Fila("modo sin elegir", {"", "[Vía Satélite]", "/16", "3.650 SSB 80m satélite" + carga});
        Fila("apagado conserva",
             {"", "[Vía Satélite]|Combo3=AO-91|Text1=990|foco=Corresponsal|[Vía Satélite]",
              "AO-91/16", "435.990 FM 70cm normal" + ao91});
        Fila("encendido toma el satélite",
             {"", "Combo3=AO-91|Text1=990|foco=Corresponsal|[Vía Satélite]", "AO-91/16",
              "435.550 FM 70cm satélite" + ao91});
    }

    void modoYEleccion()
    {
        const QString archivos = Dato("archivos");
        Ventana v(archivos);
        const QByteArray satelites = v.p.Leer(u"satelites.txt"_s);
        for (const QString &paso : Dato("pasos").split(u'|', Qt::SkipEmptyParts))
            Paso(*v.f, *v.p.falsos.dialogos, paso);
        // The choice shown is the one kept for the next start.
        const QString elegido = v.f->Combo3->currentText();
        QCOMPARE(v.p.Leer(u"memsat.ini"_s), elegido.isEmpty() ? "" : elegido.toLatin1() + "\r\n");
        QCOMPARE(elegido + u'/' + QString::number(v.f->Combo3->count()), Dato("elegido"));
        QCOMPARE(v.Estado(), Dato("estado"));
        // Reading the file never rewrites it, a damaged one least of all.
        if (archivos.startsWith("satelites.txt"_L1))
            QCOMPARE(satelites, archivos.section(u'=', 1).replace(u"\n"_s, u"\r\n"_s).toLatin1());
        if (v.f->Command15->isVisible()) {
            v.f->Command15->click();
            QCOMPARE(v.p.falsos.escritorio->abiertos,
                     QStringList{v.p->direcciones().AMSAT + "/pass.htm"});
        }
    }

    void editor_data()
    {
        // extra: lines after the default list. pasos: as Paso takes them. mensajes: the boxes, line
        // ends as "/". cambios: the file's lines added and gone. queda: the name field of
        // "Agregar", and that of "Editando ..." or "-" when hidden.
        Columnas({"extra", "pasos", "mensajes", "cambios", "queda"});
        Fila("agregar", {"", "Text1=ao-100|Text4=67.0|Frec_new=148.999|[Agregar]", "",
                         "+16:AO-100;2m;70cm;FM;67.0;148.999", "|-"});
        // Only digits and the point, and eight of them for 23 cm.
        Fila("agregar 23 cm", {"", "Text1=so-x;|Combo1=23cm|Frec_new=12a67.1009|[Agregar]", "",
                               "+16:SO-X;23cm;70cm;FM; ;1267.100", "|-"});
        Fila("sin nombre", {"", "Text1=  |[Agregar]", "Falta el nombre del Satélite!", "", "  |-"});
        Fila("bandas iguales", {"", "Text1=x|Combo2=2m|[Agregar]",
                                "Banda de Subida igual a la de Bajada ?", "", "X|-"});
        Fila("23 cm sin frecuencia",
             {"", "Text1=x|Combo1=23cm|[Agregar]",
              "En 23 cm, el formato de la frecuencia es://MMMM.KKK", "", "X|-"});
        Fila("repetido",
             {"", "Text1=ao-7|[Agregar]", "el satélite AO-7 ya está en la lista!", "", "AO-7|-"});
        Fila("fuera de banda al salir",
             {"", "Combo1=70cm|Frec_new=145.990|foco=Text4",
              "La frecuencia es 145.990/No es de la banda de 70m!", "", "|-"});
        Fila("editar", {"", "List1=AO-73|Text3=67.0|Text5=435.100|[Aceptar]", "",
                        "+1:AO-73;70cm;2m;SSB;67.0;435.100|-1:AO-73;70cm;2m;SSB; ", "|-"});
        Fila("editar sin nombre",
             {"", "List1=AO-73|Text2=|[Aceptar]", "Falta el nombre del Satélite!", "", "|"});
        Fila("cancelar", {"", "List1=FO-29|Text2=ZZ|[Cancelar]", "", "", "|-"});
        Fila("eliminar, no",
             {"", "List1=AO-7|No|[Eliminar]", "Elimina Satélite AO-7?", "", "|AO-7"});
        Fila("eliminar, sí", {"", "List1=AO-7|Sí|[Eliminar]", "Elimina Satélite AO-7?",
                              "-0:AO-7;70cm;2m;SSB;100.4", "|-"});
        // Lines the lists leave out stay in the file through a change, and a last line without
        // its line end does not swallow the one added.
        Fila("líneas dañadas quedan",
             {"corta;2m\n;;;;\nZ;2m;70cm;FM",
              "Text1=x-9|[Agregar]|List1=IO-86|Combo6=SSB|[Aceptar]", "",
              "+13:IO-86;2m;70cm;SSB;88.5; |+19:X-9;2m;70cm;FM; ; |-13:IO-86;2m;70cm;FM;88.5",
              "|-"});
    }

    void editor()
    {
        const QString extra = Dato("extra");
        QStringList antes = SatelitesBase();
        if (!extra.isEmpty())
            antes += extra.split(u'\n');
        Ventana v(u"satelites.txt="_s + antes.join(u'\n') +
                  (extra.isEmpty() ? u"\n"_s : QString()));
        DialogosFalso &d = *v.p.falsos.dialogos;
        Form11 &e = *v.e;
        e.CargarLista();
        e.show();
        QApplication::setActiveWindow(&e);
        QVERIFY(QTest::qWaitForWindowActive(&e));
        for (const QString &paso : Dato("pasos").split(u'|'))
            Paso(e, d, paso);
        QCOMPARE(d.Textos().join(u'|').replace("\r\n"_L1, "/"_L1), Dato("mensajes"));
        const QString despues = QString::fromLatin1(v.p.Leer(u"satelites.txt"_s));
        QCOMPARE(Cambios(antes, despues.split(u"\r\n"_s).mid(0, despues.count(u"\r\n"_s))),
                 Dato("cambios"));
        QCOMPARE(e.Text1->text() + u'|' + (e.Frame3->isVisible() ? e.Text2->text() : u"-"_s),
                 Dato("queda"));
        // Both lists are the file's, read again after the change.
        QCOMPARE(v.f->Combo3->count(), LeerCatalogo(v.p.Carpeta()).size());
        QCOMPARE(e.List1->count(), v.f->Combo3->count());
        for (int i = 0; i < e.List1->count(); ++i)
            QCOMPARE(e.List1->item(i)->text(), v.f->Combo3->itemText(i));
    }
};

QTEST_MAIN(TestSatelitesVentanas)
#include "test_satelites_ventanas.moc"
