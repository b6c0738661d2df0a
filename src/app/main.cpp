// SPDX-License-Identifier: GPL-3.0-or-later
// Carancho Radiolog: the composition root. Builds the services and the context, opens
// the store and shows Form1, the window that ends the program.

#include "core/context/Contexto.h"
#include "core/platform/BombaQt.h"
#include "core/platform/ClienteWebQt.h"
#include "core/platform/LineaSerieQt.h"
#include "core/platform/RelojSistema.h"
#include "gui/adif/ExportarAdif.h"
#include "gui/adif/Form12.h"
#include "gui/contest/Concursos.h"
#include "gui/editing/Form5.h"
#include "gui/lookup/Form33.h"
#include "gui/main/Actualizaciones.h"
#include "gui/main/Form1.h"
#include "gui/nationallog/Form14.h"
#include "gui/nationallog/VentanaSubida.h"
#include "gui/platform/DialogosQt.h"
#include "gui/platform/EscritorioQt.h"
#include "gui/platform/ReproductorQt.h"
#include "gui/satellites/Form11.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace {

// Qt's own Spanish for the standard buttons and dialogs: "Sí", "No", "Cancelar".
void CargarTraducciones(QApplication &app)
{
    const QString carpeta = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    for (const char *nombre : {"qtbase_es", "qt_es", "qtmultimedia_es", "qtserialport_es"}) {
        auto *t = new QTranslator(&app);
        if (t->load(QString::fromLatin1(nombre), carpeta))
            app.installTranslator(t);
        else
            delete t;
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("carancho-radiolog"));
    // The desktop groups the window under its menu entry by this name.
    QGuiApplication::setDesktopFileName(QStringLiteral(RADIOLOG_ID_APLICACION));
    QIcon icono;
    for (const char *tamano : {"48x48", "128x128", "256x256"})
        icono.addFile(
            QStringLiteral(":/%1/" RADIOLOG_ID_APLICACION ".png").arg(QLatin1String(tamano)));
    QApplication::setWindowIcon(icono);
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Argentina));
    CargarTraducciones(app);

    Servicios servicios;
    servicios.dialogos = std::make_unique<DialogosQt>();
    servicios.escritorio = std::make_unique<EscritorioQt>();
    servicios.web = std::make_unique<ClienteWebQt>();
    servicios.reloj = std::make_unique<RelojSistema>();
    servicios.bomba = std::make_unique<BombaQt>();
    servicios.puertoPTT = std::make_unique<LineaSerieQt>();
    servicios.puertoCW = std::make_unique<LineaSerieQt>();
    servicios.reproductor = std::make_unique<ReproductorQt>();

    Contexto contexto(Contexto::CarpetaPorDefecto(), std::move(servicios));
    Resultado<> listo = contexto.PrepararCarpeta();
    if (listo)
        listo = contexto.AbrirAlmacen();
    if (!listo) {
        contexto.dialogos().Alto(listo.Mensaje() +
                                 QStringLiteral("\r\n\r\nCarancho Radiolog se cerrará."));
        return 1;
    }

    Form1 ventana(contexto);
    Form5 *edicion = ConectarEdicion(ventana, contexto);
    const LbNConectado lbn = ConectarLbN(ventana, contexto);
    ConectarAdif(ventana, contexto, edicion,
                 [provincias = lbn.provincias](const QVector<FilaQSO> &filas) {
                     provincias->TablaDesdeBusqueda(filas);
                 });
    ConectarImportacion(ventana, contexto);
    ConectarSatelites(ventana, contexto);
    ConectarActualizaciones(ventana, contexto);
    // The contest window's "ADIF" is the ADIF writer's contest export.
    ConectarConcursos(ventana, contexto,
                      [&contexto](const QString &concurso, const QString &senal) {
                          ExportarConcursoAdif(contexto, concurso, senal);
                      });
    ConectarConsultas(ventana, contexto, edicion);
    ventana.show();
    return app.exec();
}
