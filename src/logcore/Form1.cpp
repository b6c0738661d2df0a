#include "logcore/Form1.h"

#include "logcore/Contexto.h"

Form1::Form1(Contexto &contexto, QWidget *parent)
    : QMainWindow(parent)
    , ctx(contexto)
{
    setObjectName(QStringLiteral("Form1"));
    setWindowTitle(QStringLiteral("Carancho Radiolog V") + ctx.VersionPrograma);
}
