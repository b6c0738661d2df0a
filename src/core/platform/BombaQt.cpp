#include "core/platform/BombaQt.h"

#include <QCoreApplication>

void BombaQt::Bombear()
{
    QCoreApplication::processEvents();
}
