#include "gui/main/Form10.h"

#include "core/context/Contexto.h"
#include "gui/common/Twips.h"

#include <QLabel>
#include <QPushButton>

Form10::Form10(Contexto &ctx, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("Form10"));
    setWindowTitle(QStringLiteral("Acerca de ..."));
    setModal(true);
    setFixedSize(Px(7200), Px(5200));

    auto *titulo = new QLabel(QStringLiteral("Carancho Radiolog"), this);
    QFont grande = titulo->font();
    grande.setBold(true);
    grande.setPointSizeF(grande.pointSizeF() * 1.8);
    titulo->setFont(grande);
    titulo->setGeometry(Px(240), Px(200), Px(6700), Px(500));

    Label3 = new QLabel(QStringLiteral("Versión ") + ctx.VersionPrograma, this);
    Label3->setObjectName(QStringLiteral("Label3"));
    Label3->setGeometry(Px(240), Px(760), Px(6700), Px(300));

    const QStringList grupos{
        QStringLiteral("Versión altamente simplificada del Carancho."),
        QStringLiteral("Sin macros, sin puertos,") +
            QStringLiteral(" sin CAT para hacerlo ágil para aquellos que anotan los QSOs en "
                           "papel y posteriormente desean ") +
            QStringLiteral(" tener un libro de guardia simple y poder ingresar los QSOs en "
                           "otro momento agregando fecha y ") +
            QStringLiteral("hora en forma manual y, entonces, poder generar archivos ADIF para "
                           "subir a LbN, eQSL, LoTW, ") +
            QStringLiteral("Club Log o donde se desee."),
        QStringLiteral("También permite cargar logs de concursos y exportarlos en formato ") +
            QStringLiteral("cabrillo para enviar al organizador."),
        QStringLiteral("Hecho en Argentina por radioaficionados, para radioaficionados.")};
    Label2 = new QLabel(grupos.join(QStringLiteral("\n\n")), this);
    Label2->setObjectName(QStringLiteral("Label2"));
    Label2->setWordWrap(true);
    Label2->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    Label2->setGeometry(Px(240), Px(1160), Px(6700), Px(3200));

    auto *aceptar = new QPushButton(QStringLiteral("Aceptar"), this);
    aceptar->setObjectName(QStringLiteral("Command1"));
    aceptar->setGeometry(Px(5640), Px(4560), Px(1300), Px(420));
    aceptar->setDefault(true);
    connect(aceptar, &QPushButton::clicked, this, &QDialog::accept);
}
