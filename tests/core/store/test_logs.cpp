// SPDX-License-Identifier: GPL-3.0-or-later
// The named logs and the callsign history without a window: the case-blind refusal of
// a taken name and the fixed columns of the history.

#include "core/store/Historial.h"
#include "core/store/Logs.h"

#include <QTest>

class TestLogs : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void lineas_data()
    {
        QTest::addColumn<QStringList>("campos"); // MyCall, Estacion, Banda, Modo, Fecha, Hora
        QTest::addColumn<QString>("esperada");
        QTest::newRow("común, guiones de la fecha")
            << QStringList{"LU1AAA", "LU0XX/P", "40m", "CW", "2024-01-03", "10:00:00"}
            << "          LU1AAA|         LU0XX/P|   40m|    CW|2024/01/03|10:00:00";
        QTest::newRow("modo y banda al ancho o más")
            << QStringList{"LU1AAA", "LU0XX", "2200m", "DVoice", "02/01/2024", "23:59:00"}
            << "          LU1AAA|           LU0XX| 2200m|DVoice|02/01/2024|23:59:00";
        QTest::newRow("columnas vacías") << QStringList{"", "LU0XX", "", "", "", ""}
                                         << "                |           LU0XX|      |      ||";
        QTest::newRow("señal de más de 15")
            << QStringList{"LU1AAA", "VP8/LU0XXX/MM/QRP", "20m", "FT8", "04/01/2024", "12:00:00"}
            << "          LU1AAA|VP8/LU0XXX/MM/QRP|   20m|   FT8|04/01/2024|12:00:00";
    }

    void lineas()
    {
        QFETCH(QStringList, campos);
        QFETCH(QString, esperada);
        FilaQSO f;
        f.MyCall = campos[0], f.Estacion = campos[1], f.Banda = campos[2];
        f.Modo = campos[3], f.Fecha = campos[4], f.Hora = campos[5];
        QCOMPARE(LineaHistorial(f), esperada);
    }

    void nombreTomado_data()
    {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<bool>("tomado");
        QTest::newRow("acentos y eñe") << "ñANDÚ" << true;
        QTest::newRow("blanco de más") << "LOG A " << false;
        QTest::newRow("prefijo") << "LOG" << false;
    }

    void nombreTomado()
    {
        QFETCH(QString, nombre);
        QFETCH(bool, tomado);
        QCOMPARE(ExisteLog({QStringLiteral("LOG A"), QStringLiteral("Ñandú")}, nombre), tomado);
    }
};

QTEST_GUILESS_MAIN(TestLogs)
#include "test_logs.moc"
