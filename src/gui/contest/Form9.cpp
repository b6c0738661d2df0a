// SPDX-License-Identifier: GPL-3.0-or-later
// Form9: the Cabrillo header.
#include "gui/contest/Form9.h"

#include "core/contest/Cabrillo.h"
#include "core/context/Contexto.h"
#include "gui/common/Controles.h"
#include "gui/common/TeclaEnCampo.h"

#include <QComboBox>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

void Llenar(QComboBox *lista, const QStringList &items, const QString &porDefecto)
{
    lista->clear();
    lista->addItems(items);
    lista->setCurrentText(porDefecto);
}

} // namespace

Form9::Form9(Contexto &contexto, QWidget *parent)
    : QDialog(parent)
    , ctx(contexto)
{
    setObjectName(QStringLiteral("Form9"));
    setWindowTitle(QStringLiteral("Encabezado ..."));
    auto *rejilla = new QGridLayout;
    auto poner = [this, rejilla](QWidget *campo, const QString &rotulo, int fila, int columna,
                                 int ancho = 1) {
        QLabel *l = Rotulo(this, rotulo, campo);
        rejilla->addWidget(l, fila, columna);
        rejilla->addWidget(campo, fila, columna + 1, 1, ancho);
        return l;
    };
    auto texto = [this](const char *nombre) { return Crear<QLineEdit>(this, nombre); };
    auto lista = [this](const char *nombre) { return Crear<QComboBox>(this, nombre); };
    Text1 = texto("Text1");
    poner(Text1, QStringLiteral("Mi Señal Distintiva"), 0, 0);
    Text3 = texto("Text3");
    poner(Text3, QStringLiteral("Concurso"), 0, 2);
    Combo1 = lista("Combo1");
    poner(Combo1, QStringLiteral("Categoría"), 1, 0);
    Combo2 = lista("Combo2");
    poner(Combo2, QStringLiteral("Potencia"), 1, 2);
    Combo3 = lista("Combo3");
    poner(Combo3, QStringLiteral("Bandas"), 2, 0);
    Combo4 = lista("Combo4");
    poner(Combo4, QStringLiteral("Modo"), 2, 2);
    Text9 = texto("Text9");
    Label9 = poner(Text9, QStringLiteral("Operadores"), 3, 0, 3);
    Label9->setObjectName(QStringLiteral("Label9"));
    Text2 = texto("Text2");
    poner(Text2, QStringLiteral("Nombre"), 4, 0, 3);
    Text4 = texto("Text4");
    poner(Text4, QStringLiteral("Domicilio"), 5, 0, 3);
    Text5 = texto("Text5");
    Text5->setAccessibleName(QStringLiteral("Domicilio, segunda línea"));
    rejilla->addWidget(Text5, 6, 1, 1, 3);
    Text6 = texto("Text6");
    Text6->setAccessibleName(QStringLiteral("Domicilio, tercera línea"));
    rejilla->addWidget(Text6, 7, 1, 1, 3);
    Text7 = texto("Text7");
    poner(Text7, QStringLiteral("Correo electrónico"), 8, 0, 3);

    Text8 = Crear<QPlainTextEdit>(this, "Text8");
    Text8->setAccessibleName(QStringLiteral("Log Cabrillo"));
    Text8->setLineWrapMode(QPlainTextEdit::NoWrap);
    Text8->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    Text8->setMinimumSize(Px(9000), Px(2500));
    Command1 = Boton(this, "Command1", QStringLiteral("Cabrillo"));

    auto *todo = new QVBoxLayout(this);
    todo->addLayout(rejilla);
    todo->addWidget(Text8, 1);
    todo->addWidget(Command1, 0, Qt::AlignRight);

    Text1->installEventFilter(this);
    connect(Combo1, &QComboBox::activated, this, &Form9::MostrarOperadores);
    connect(Command1, &QPushButton::clicked, this, &Form9::Command1_Click);
}

void Form9::Cargar(const QString &lineas, const QString &concurso, int cantidad,
                   const QString &senal)
{
    // The whole log is put in at once: one layout of the text, not one per line.
    Text8->setPlainText(QString(lineas).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    Text3->setText(concurso);
    Text1->setText(senal);
    setWindowTitle(TituloEncabezado(concurso, cantidad));
}

void Form9::showEvent(QShowEvent *evento)
{
    QDialog::showEvent(evento);
    Activar();
}

void Form9::Activar()
{
    Llenar(Combo1,
           {QStringLiteral("SINGLE-OP"), QStringLiteral("MULTI-OP"), QStringLiteral("CHECKLOG")},
           QStringLiteral("SINGLE-OP"));
    Llenar(Combo2, {QStringLiteral("HIGH"), QStringLiteral("LOW"), QStringLiteral("QRP")},
           QStringLiteral("LOW"));
    Llenar(Combo3,
           {QStringLiteral("ALL"), QStringLiteral("160m"), QStringLiteral("80m"),
            QStringLiteral("40m"), QStringLiteral("20m"), QStringLiteral("15m"),
            QStringLiteral("10m"), QStringLiteral("6m"), QStringLiteral("2m")},
           QStringLiteral("ALL"));
    Llenar(Combo4, {QStringLiteral("SSB"), QStringLiteral("CW"), QStringLiteral("MIXED")},
           QStringLiteral("MIXED"));
    MostrarOperadores();
    // Line by line as the file has them; a missing file leaves the fields as they are.
    const QStringList datos = LeerDatosCbr(ctx.Carpeta());
    QLineEdit *campos[] = {Text2, Text4, Text5, Text6, Text7};
    for (int i = 0; i < datos.size(); ++i)
        campos[i]->setText(datos[i]);
}

int Form9::Mostrar()
{
    return exec();
}

void Form9::MostrarOperadores()
{
    const bool varios = Combo1->currentText() == QLatin1String("MULTI-OP");
    Label9->setVisible(varios);
    Text9->setVisible(varios);
}

bool Form9::eventFilter(QObject *objeto, QEvent *evento)
{
    if (objeto == Text1 && evento->type() == QEvent::KeyPress &&
        FiltrarTeclaEnCampo(Text1, static_cast<QKeyEvent *>(evento), FiltroTecla::Senal))
        return true;
    return QDialog::eventFilter(objeto, evento);
}

void Form9::Command1_Click()
{
    if (const Resultado<> r =
            GuardarDatosCbr(ctx.Carpeta(), {Text2->text(), Text4->text(), Text5->text(),
                                            Text6->text(), Text7->text()});
        !r)
        ctx.dialogos().Exclamacion(r.Mensaje()); // the export goes on without it
    const EncabezadoCabrillo e{Text1->text(),         Text3->text(),         Combo1->currentText(),
                               Combo2->currentText(), Combo3->currentText(), Combo4->currentText(),
                               Text9->text(),         Text2->text(),         Text4->text(),
                               Text5->text(),         Text6->text(),         Text7->text()};
    if (const auto falta = FaltaEnEncabezado(e)) {
        ctx.dialogos().Exclamacion(falta->second);
        (falta->first == 0 ? Text1 : Text2)->setFocus(Qt::OtherFocusReason);
        return;
    }
    // Each press puts a header in front of what the text holds, a header of an earlier
    // press included: what the operator sees is what is saved.
    Text8->setPlainText(TextoEncabezado(e, ctx.VersionPrograma)
                            .replace(QLatin1String("\r\n"), QLatin1String("\n")) +
                        Text8->toPlainText());
    QString archivo;
    for (;;) {
        archivo = ctx.dialogos().GuardarArchivo(QStringLiteral("Exportar a Cabrillo ..."),
                                                QString(), QStringLiteral("ADIF (*.log)"));
        if (archivo.isEmpty())
            return; // cancelled: the window stays, with its text
        if (!QFileInfo::exists(archivo) ||
            ctx.dialogos().PreguntaSiNo(PreguntaSobregrabar(archivo)))
            break;
    }
    if (const Resultado<> r = GuardarCabrillo(archivo, Text8->toPlainText()); !r) {
        ctx.dialogos().Alto(r.Mensaje());
        return;
    }
    if (ctx.dialogos().ExclamacionSiNo(MensajeGuardado(archivo)))
        ctx.escritorio().Abrir(archivo);
    accept();
}
