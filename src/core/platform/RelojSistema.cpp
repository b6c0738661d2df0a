#include "core/platform/RelojSistema.h"

QDateTime RelojSistema::Ahora() const
{
    return QDateTime::currentDateTime();
}
