// SPDX-License-Identifier: GPL-3.0-or-later
// The national log: the requests as they reach a server, the replies read, the runs of
// the menu and of the search window over a real connection, and the province award.

#include "core/nationallog/CorridaMenu.h"
#include "core/nationallog/PremioProvincias.h"
#include "core/nationallog/SubidaBusqueda.h"
#include "core/platform/ClienteWebQt.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"
#include "support/ServidorHttpPrueba.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString kLog = u"Prueba"_s;

// Own call, correspondent, band, mode, date, time, report, satellite, LbN, province, grid.
FilaQSO Fila(const QString &suCall, const QString &lbn, const QString &provincia = u"Chaco"_s,
             const QString &banda = u"40m"_s, const QString &sat = {}, const QString &grilla = {},
             const QString &frec = u"7.074"_s)
{
    FilaQSO f;
    f.MyCall = u"LU1ABC"_s, f.Estacion = suCall, f.Banda = banda, f.Modo = u"SSB"_s;
    f.Fecha = u"01/02/2024"_s, f.Hora = u"12:34:56"_s, f.RSE = u"59"_s, f.Nombre_Sat = sat;
    f.LbN = lbn, f.Argento = provincia, f.SuGrid = grilla, f.Frecuencia = frec;
    return f;
}

qint64 Guardar(Almacen &a, const FilaQSO &f)
{
    return Hecho(a.AgregarQSOImportado({f.Estacion, f.Banda, f.Modo, f.RSE, f.RSR, f.Fecha, f.Hora,
                                        f.MyCall, f.Operador, f.Obs, f.Frecuencia, f.MiGrid,
                                        f.SuGrid, f.Nombre_Sat, f.LbN, f.Argento},
                                       kLog));
}

struct VistaGrabada : VistaCorrida
{
    void Mostrar(int maximo) override { visible = true, this->maximo = maximo; }
    void Ocultar() override { visible = false; }
    void Estado(const QString &t) override { estados << t; }
    void Linea(const QString &t) override { lineas << t; }
    void Avanzar() override { ++avance; }
    bool visible = false;
    int maximo = 0, avance = 0;
    QStringList estados, lineas;
};

// The service's echo of a request, then its status.
QByteArray Eco(const QString &suCall, const QByteArray &estado)
{
    return "LU1ABC " + suCall.toUtf8() + " 40m SSB 01/02/2024 1234 " + estado;
}

} // namespace

class TestLbN : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pedidos()
    {
        // Only the password escaped, "%" first; the rest as typed, a blank as %20.
        ServidorHttpPrueba servidor;
        servidor.ResponderPrefijo(u"/php/"_s, "ok");
        ClienteWebQt cliente;
        BombaFalsa bomba;
        SubidaLbN tres(cliente, bomba, servidor.Base(), u"yo@x.com+1"_s, u"%&!*'();:@=+$,/?#[] ñ"_s,
                       SubidaLbN::Script::Carancho3);
        EnvioLbN e{
            7,
            {u"LU1ABC"_s, u"LU2XYZ/P"_s, u"40m"_s, u"SSB"_s, u"01/02/2024"_s, u"1234"_s, u"5 9"_s},
            u"Hola + chau"_s};
        QVERIFY(tres.Correr({e}, [](const PasoSubida &) {}) == SubidaLbN::Fin::Completa);
        SubidaLbN dos(cliente, bomba, servidor.Base(), u"yo"_s, u"%26"_s,
                      SubidaLbN::Script::Carancho2Radiolog);
        dos.Correr({e}, [](const PasoSubida &) {});
        QCOMPARE(servidor.pedidos.size(), 2);
        QCOMPARE(servidor.pedidos[0].crudo,
                 "/php/carancho3.php?user=yo@x.com+1&pass=%25%26%21%2A%27%28%29%3B%3A%40%3D%2B"
                 "%24%2C%2F%3F%23%5B%5D%20%C3%B1&micall=LU1ABC&sucall=LU2XYZ/P&banda=40m&modo=SSB"
                 "&fecha=01/02/2024&hora=1234&rst=5%209");
        QCOMPARE(servidor.pedidos[1].crudo,
                 "/php/carancho2Radiolog.php?user=yo&pass=%2526&micall=LU1ABC&sucall=LU2XYZ/P"
                 "&banda=40m&modo=SSB&fecha=01/02/2024&hora=1234&rst=5%209"
                 "&x_qslMSG=Hola%20+%20chau");
        QCOMPARE(DireccionConsultaLbN(u"http://h"_s, u"LU2XYZ"_s, true).toString(),
                 u"https://h/php/carancho_lbn.php?qrz=LU2XYZ"_s);
    }

    // A reply of the service, the line shown for it (an unread one repeats the one before,
    // "antes") and the state it gives the row (-1: left as it was).
    void respuestas_data()
    {
        QTest::addColumn<QString>("respuesta");
        QTest::addColumn<QString>("linea");
        QTest::addColumn<int>("estado");
        const auto fila = [](const char *n, const QString &respuesta, const char *linea, int e) {
            QTest::newRow(n) << respuesta << QString::fromUtf8(linea) << e;
        };
        const QString eco = u"LU1ABC LU2XYZ 40m SSB 01/02/2024 1234 "_s;
        fila("no confirmado", eco + u"duplicado!N"_s,
             "7 LU1ABC>LU2XYZ 40m/SSB >Chequeado, aún no Confirmado!", 1);
        fila("confirmado S", eco + u"duplicado!S"_s,
             "7 LU1ABC>LU2XYZ 40m/SSB >Chequeado, Confirmado!", 2);
        fila("el último gana", eco + u"duplicado!Y y Guardado"_s,
             "7 LU1ABC>LU2XYZ 40m/SSB >Subido!", 1);
        fila("sin estado repite", eco + u"guardado"_s, "7 LU1ABC>LU2XYZ 40m/SSB >antes", -1);
        fila("vacía", {}, "7 > / >antes", -1);
        fila("contraseña", u"Error de Contraseña Guardado"_s, "7 Error de Contraseña Guardado", -1);
        fila("no es LbN", u"Usuario no es de LbN"_s, "7 Usuario no es de LbN", -1);
        fila("argentina", u"No es de Argentina duplicado!Y"_s, "7 LU2XYZ No lo considera LbN", -1);
        fila("minúsculas", u"lbn argentina"_s, "7 lbn>argentina / >antes", -1);
    }
    void respuestas()
    {
        QFETCH(QString, respuesta);
        QString anterior = u"antes"_s;
        const LecturaCarancho3 l = LeerCarancho3(respuesta, 7, u"LU2XYZ"_s, anterior);
        QTEST(l.linea, "linea");
        QTEST(l.estado, "estado");
    }

    void corrida_data()
    {
        // The second QSO's reply decides; the first and third are stored at once.
        QTest::addColumn<int>("tipo");
        QTest::addColumn<QByteArray>("segunda"); // "callado", "500" or the page
        QTest::addColumn<QString>("estados");    // the three rows after the run
        QTest::addColumn<bool>("sinConexion");   // the run ends at the second, with a message
        const auto fila = [](const char *n, TipoCorrida tipo, const QByteArray &segunda,
                             const char *estados, bool sinConexion = false) {
            QTest::newRow(n) << int(tipo) << segunda << QString(estados) << sinConexion;
        };
        const TipoCorrida suych = TipoCorrida::SubirYChequear, ssub = TipoCorrida::SoloSubir;
        fila("confirmada", suych, Eco(u"LU2BBB"_s, "duplicado!Y"), "1 2 1");
        fila("error", suych, "Error de Contraseña", "1 0 1");
        fila("vacía", ssub, {}, "1 0 1");
        fila("10 MB", suych, QByteArray(10 << 20, 'x') + " Guardado", "1 0 1");
        fila("página, ssub", ssub, "No se puede mostrar. Este programa ...", "1 0 0", true);
        fila("página, suych", suych, "Este programa", "1 0 1");
        fila("callado", suych, "callado", "1 0 0", true);
        fila("500", ssub, "500", "1 0 0", true);
    }
    void corrida()
    {
        QFETCH(int, tipo);
        QFETCH(QByteArray, segunda);
        ServidorHttpPrueba servidor;
        ContextoPrueba prueba(servidor.Base(), true);
        Almacen &a = prueba->almacen();
        prueba->config().UserLbN = prueba->config().PassLbN = u"x"_s;
        // Left out, in this order: no correspondent, confirmed, mobile, no province.
        for (const FilaQSO &f : {Fila({}, {}), Fila(u"LU9ZZZ"_s, u"2"_s), Fila(u"LU8YY/MM"_s, {}),
                                 Fila(u"EA1AA"_s, {}, {})})
            Guardar(a, f);
        const QVector<qint64> ids = {
            Guardar(a, Fila(u"LU2AAA"_s, u"0"_s, u"Chaco"_s, u"14.200.0"_s)),
            Guardar(a, Fila(u"LU2BBB"_s, {}, u"Salta"_s, u"40m"_s, u"AO-7"_s)),
            Guardar(a, Fila(u"LU2CCC"_s, u"0"_s))};
        connect(&servidor, &ServidorHttpPrueba::PedidoRecibido, this,
                [&](const ServidorHttpPrueba::Pedido &p) {
                    const QString ruta = QString::fromLatin1(p.crudo);
                    const bool esSegunda = ruta.contains(u"LU2BBB"_s);
                    servidor.Callar(esSegunda && segunda == "callado");
                    ServidorHttpPrueba::Respuesta r;
                    r.estado = esSegunda && segunda == "500" ? 500 : 200;
                    r.cuerpo = esSegunda ? segunda : Eco(u"LU2AAA"_s, "Guardado");
                    servidor.Responder(ruta, r);
                });
        prueba.falsos.dialogos->respuestasSiNo.enqueue(true);
        VistaGrabada vista;
        CorridaMenu corrida({a, prueba->dialogos(), prueba->web(), prueba->bomba(),
                             prueba->config(), prueba->direcciones().LbN},
                            vista);
        corrida.tiempoMaximoMs = 1500;
        corrida.Correr(TipoCorrida(tipo), kLog);

        QStringList estados;
        for (qint64 id : ids)
            estados << (a.QSOPorId(kLog, id)->LbN.isEmpty() ? u"0"_s : a.QSOPorId(kLog, id)->LbN);
        QTEST(estados.join(u' '), "estados");
        QFETCH(bool, sinConexion);
        QCOMPARE(vista.lineas.size(), sinConexion ? 1 : 3);
        const QStringList textos = prueba.falsos.dialogos->Textos();
        QCOMPARE(textos.last(), sinConexion ? MensajeSinConexion() : textos.first());
        QCOMPARE(vista.visible, !sinConexion);
        QCOMPARE(vista.maximo, 3);
        QCOMPARE(servidor.pedidos.size(), qMin(3, vista.lineas.size() + 1));
        // The counts before the question, the sends in order with their own forms.
        QVERIFY(textos.first().startsWith(
            u"log Prueba con 5 QSO(s)\r\n\r\nEstaciones NO Argentinas: 1\r\nEstaciones Móviles: "
            u"1\r\n\r\n"
            "Call: LU1ABC\r\nSube a LbN el log Prueba con 3 QSO(s)?"_s));
        QVERIFY(servidor.pedidos[0].crudo.contains("&banda=20m&"));
        QVERIFY(servidor.pedidos[1].crudo.contains("&modo=Sat&"));
        if (segunda == "callado")
            QVERIFY(vista.estados.contains(u"Conectando con LbN ... 1/15"_s));
    }

    void preparacion_data()
    {
        QTest::addColumn<QVector<FilaQSO>>("filas");
        QTest::addColumn<int>("tipo");
        QTest::addColumn<int>("envios");
        QTest::addColumn<QString>("mensaje");
        QVector<FilaQSO> muchas;
        for (int i = 0; i < 1200; ++i)
            muchas << Fila(u"LU%1AA"_s.arg(i), {});
        const int suych = int(TipoCorrida::SubirYChequear);
        QTest::newRow("vacío") << QVector<FilaQSO>{Fila({}, {})} << suych << 0
                               << u"No hay QSOs en el log Prueba"_s;
        QTest::newRow("extranjeros") << QVector<FilaQSO>{Fila(u"EA1A"_s, {}, {})} << suych << 0
                                     << u"No hay estaciones argentinas en\r\nLog: Prueba"_s;
        QTest::newRow("confirmados")
            << QVector<FilaQSO>{Fila(u"LU1A"_s, u"2"_s), Fila(u"LU2A/MA"_s, {})} << suych << 0
            << u"No hay estaciones argentinas que no se hayan subido a LbN en\r\nLog: Prueba"_s;
        QTest::newRow("1200 suych") << muchas << suych << 1000 << QString();
        QTest::newRow("1200 ssub") << muchas << int(TipoCorrida::SoloSubir) << 1200 << QString();
    }
    void preparacion()
    {
        QFETCH(QVector<FilaQSO>, filas);
        QFETCH(int, tipo);
        const PreparacionCorrida p = PrepararCorrida(filas, TipoCorrida(tipo));
        QTEST(int(p.envios.size()), "envios");
        QTEST(MensajeSinEnvios(p, kLog), "mensaje");
        QCOMPARE(PreguntaCorrida(p, kLog).contains(
                     u"Se Tienen 1200 QSOs, se enviarán solo los 1000 primeros\r\n"_s),
                 p.limitada);
    }

    void busqueda()
    {
        // The band by the whole megahertz, whatever the row's band says; none keeps the last.
        QVector<FilaQSO> filas = {Fila(u"LU2A"_s, {}, {}, u"20m"_s, {}, {}, u"7.074"_s),
                                  Fila(u"LU2B"_s, {}, {}, u"20m"_s, {}, {}, u"5.1"_s),
                                  Fila(u"LU2C"_s, {}, {}, u"2m"_s, u"SO-50"_s, {}, u"435.1"_s),
                                  Fila(u"LU2D"_s, {}, {}, u"2m"_s, {}, {}, u"145"_s)};
        filas[3].Modo = u"DVoice"_s;
        filas[0].Obs = u"tnx"_s;
        const QVector<EnvioLbN> e = EnviosDeBusqueda(filas, true);
        QCOMPARE((QStringList{e[0].qso.banda, e[1].qso.banda, e[2].qso.banda, e[3].qso.banda}),
                 (QStringList{u"40m"_s, u"40m"_s, u"70cm"_s, u"2m"_s}));
        QCOMPARE((QStringList{e[2].qso.modo, e[3].qso.modo, e[0].qso.hora, e[0].qslMsg}),
                 (QStringList{u"Sat"_s, u"DV"_s, u"1234"_s, u"tnx"_s}));

        // Replies coloured; the third is never answered and the run goes on; a refused
        // account ends it.
        ServidorHttpPrueba servidor;
        const QStringList respuestas = {
            u"Subido ok"_s, u"LU2B duplicado!"_s, {}, u"Error de Contraseña!"_s};
        connect(&servidor, &ServidorHttpPrueba::PedidoRecibido, this,
                [&](const ServidorHttpPrueba::Pedido &p) {
                    const int n = int(servidor.pedidos.size()) - 1;
                    servidor.Callar(respuestas[n].isEmpty());
                    servidor.Responder(QString::fromLatin1(p.crudo), respuestas[n].toUtf8());
                });
        ContextoPrueba prueba(servidor.Base(), true);
        SubidaBusqueda subida(prueba->web(), prueba->bomba(), prueba->dialogos(), prueba->config(),
                              prueba->direcciones().LbN);
        subida.tiempoMaximoMs = 300;
        prueba->config().UserLbN = prueba->config().PassLbN = u"x"_s;
        QVERIFY(!subida.Preparar(1)); // the lookup's account, not the menu's
        prueba->config().LBNQuser = prueba->config().LBNQpass = u"x"_s;
        QVERIFY(!subida.Preparar(51)); // Cancelar by default
        QCOMPARE(prueba.falsos.dialogos->Textos(),
                 (QStringList{u"Sin configurar Usuario o Contraseña!"_s,
                              u"Más de 50 QSOs para subir!\r\n\r\npuede que domore mucho "
                              "tiempo, prosigue o Cancela?\r\n\r\nSUGERENCIA: Filre por fecha "
                              "para subilos en etapas"_s}));
        struct : VistaSubidaBusqueda
        {
            void Empezar(int total) override { vistas << QString::number(total); }
            void Respuesta(const QString &t, int c) override { vistas << u"%1 %2"_s.arg(c).arg(t); }
            void Terminar() override { vistas << u"fin"_s; }
            QStringList vistas;
        } vista;
        QVERIFY(subida.Subir(filas + filas, true, vista) == SubidaLbN::Fin::Rechazada);
        QVERIFY(subida.Abortada());
        QCOMPARE(vista.vistas, (QStringList{u"8"_s, u"16384 Subido ok"_s, u"255 LU2B duplicado!"_s,
                                            u"255 "_s + MensajeSinConexion(),
                                            u"255 Error de Contraseña!"_s, u"fin"_s}));
    }

    void premio_data()
    {
        QTest::addColumn<QVector<FilaQSO>>("filas");
        QTest::addColumn<QString>("chaco"); // the 40m, 2m-less and Sat cells of Chaco
        QTest::addColumn<int>("color");
        QTest::addColumn<QString>("totales40");
        QTest::addColumn<QStringList>("grillas"); // confirmed | worked
        // A confirmed province, its colour and its grid are tried on the window
        // (test_lbn_ventanas).
        QTest::newRow("2m y sin provincia")
            << QVector<FilaQSO>{Fila(u"LU5A"_s, u"1"_s, u"Chaco"_s, u"2m"_s, {}, u"FF56"_s),
                                Fila(u"EA1A"_s, u"1"_s, {}, u"40m"_s, {}, u"IN80"_s)}
            << "-1 -1" << 0 << "0/0" << QStringList{{}, u"FF56 IN80"_s};
        QTest::newRow("satélite") << QVector<FilaQSO>{Fila(u"LU5A"_s, u"1"_s, u"Chaco"_s, u"40m"_s,
                                                           u"AO-7"_s),
                                                      Fila(u"LU5B"_s, u"x"_s, u"Chaco"_s, u"40m"_s)}
                                  << "1 1" << 16576 << "0/1" << QStringList{{}, {}};
    }
    void premio()
    {
        QFETCH(QVector<FilaQSO>, filas);
        const GrillaPremio g = CalcularPremio(filas);
        const int chaco = 3, cuarenta = 3, sat = 11;
        QTEST(u"%1 %2"_s.arg(g.celdas[chaco][cuarenta]).arg(g.celdas[chaco][sat]), "chaco");
        QTEST(ColorProvincia(g.mejor[chaco]), "color");
        QTEST(g.totales[cuarenta], "totales40");
        QTEST((QStringList{g.grillasConfirmadas.join(u' '), g.grillasTrabajadas.join(u' ')}),
              "grillas");
    }

    void miembros()
    {
        QCOMPARE(LineaMiembros(u"LU1ABC;nomo:Juan,ultimar:hoy"_s), u"LU1ABC Juan>hoy"_s);
        QCOMPARE(LineaMiembros(u"nada"_s), u"nada >"_s);
    }
};

QTEST_MAIN(TestLbN)
#include "test_lbn.moc"
