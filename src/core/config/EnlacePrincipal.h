#pragma once
// What the configuration window needs of the main window: the "No Borrar" box, which is
// saved with the settings but lives in the main window, the fields that show the station,
// and the presence timer that a Guardar starts and a Cancelar stops. Form1 implements it;
// tests hand in a small fake.

#include <QString>

class EnlacePrincipal
{
public:
    virtual ~EnlacePrincipal() = default;

    // The value of the main window's "No Borrar" box, 0 or 1.
    virtual int ValorNoBorrar() const = 0;
    virtual void PonerNoBorrar(int valor) = 0;

    // Shows the settings in the main window after every read and save: the callsigns
    // (already upper-cased), the log in use, the grid and the screen layout.
    virtual void AplicarConfiguracion(const QString &estacion, const QString &operador,
                                      const QString &logenUso, const QString &grid,
                                      int pantalla) = 0;

    // Starts (true) or stops (false) the timer that sends the first presence message.
    virtual void PonerPresencia(bool habilitada) = 0;
};
