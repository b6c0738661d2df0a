// SPDX-License-Identifier: GPL-3.0-or-later
// The reader of the import: a tag found as the import finds it, lengths in bytes or in
// characters, and random bytes that must not break it.
#include "core/adif/Importacion.h"
#include "core/adif/LectorAdif.h"
#include "support/Semilla.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// The tags of LeerCampos by their text, in the order of Campo, to compare the one pass
// with the search of one tag.
const char *const kTags[] = {"<GRIDSQUARE:", "<MY_GRIDSQUARE:", "<QSL_RCVD:", "<STATION_CALLSIGN:",
                             "<CALL:",       "<QSO_DATE:",      "<TIME_ON:",  "<BAND:",
                             "<FREQ:",       "<RST_SENT:",      "<RST_RCVD:", "<OPERATOR:",
                             "<MODE:",       "<PROP_MODE:",     "<COMMENT:",  "<SAT_NAME:"};
static_assert(std::size(kTags) == size_t(Campo::Cantidad));

// Every value found by the one pass is the one the search of its tag finds, and lies
// inside the line.
void MismaLectura(QByteArrayView linea, bool utf8)
{
    const CamposAdif campos = LeerCampos(linea, utf8);
    for (size_t i = 0; i < std::size(kTags); ++i) {
        const QByteArrayView v = campos.valor[i];
        QCOMPARE(v, ValorTag(linea, kTags[i], utf8));
        if (!v.isEmpty())
            QVERIFY(v.data() >= linea.data() && v.data() + v.size() <= linea.data() + linea.size());
    }
}

} // namespace

class TestLectorAdif : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void leerTag_data()
    {
        QTest::addColumn<QByteArray>("linea");
        QTest::addColumn<QByteArray>("tag");
        QTest::addColumn<bool>("utf8");
        QTest::addColumn<QString>("valor");
        const auto fila = [](const char *nombre, const QByteArray &linea, const char *tag,
                             const char *valor, bool utf8 = true) {
            QTest::newRow(nombre) << linea << QByteArray(tag) << utf8 << QString::fromUtf8(valor);
        };
        fila("minúsculas, valor intacto", "<call:5>lu1xx<eor>", "<CALL:", "lu1xx");
        fila("no dentro de otro tag", "<STATION_CALLSIGN:6>LU1AAA <CALL:6>LU2BBB",
             "<CALL:", "LU2BBB");
        fila("letra de tipo", "<FREQ:6:N>24.895 <MODE:2>CW", "<FREQ:", "24.895");
        fila("sin largo", "<CALL>LU1AAA<EOR>", "<CALL:", "");
        fila("largo negativo", "<CALL:-3>LU1<EOR>", "<CALL:", "");
        fila("largo enorme", "<CALL:99999999999999>LU1AAA", "<CALL:", "LU1AAA");
        fila("cortado al final", "<RST_SENT:2>59 <CALL:6", "<CALL:", "");
        fila("el primero manda", "<COMMENT:12>x<CALL:2>ZZ <CALL:6>LU1AAA", "<CALL:", "ZZ");
        fila("bytes", "<NAME:6>Muñoz<EOR>", "<NAME:", "Muñoz");
        fila("caracteres", "<NAME:5>Muñoz<EOR>", "<NAME:", "Muñoz");
        fila("bytes hasta un blanco", "<NAME:6>Muñoz <CALL:1>X", "<NAME:", "Muñoz");
        fila("bytes que parten un carácter", "<NAME:3>Muñoz", "<NAME:", "Muñ");
        fila("Windows-1252", "<NAME:5>Mu\xF1oz<EOR>", "<NAME:", "Muñoz", false);
    }

    void leerTag()
    {
        QFETCH(QByteArray, linea);
        QFETCH(QByteArray, tag);
        QFETCH(bool, utf8);
        QTEST(LeerTag(linea, tag, utf8), "valor");
        MismaLectura(linea, utf8);
    }

    void bytesAlAzar()
    {
        // Random bytes salted with pieces of tags: nothing read lies outside its line, the
        // one pass and the single search agree, and a whole record always comes out whole.
        QRandomGenerator azar(Semilla());
        const QByteArray piezas[] = {"<CALL:",
                                     "<call:3>",
                                     "<EOR>",
                                     "<QSO_DATE:8>",
                                     "20240101",
                                     "<TIME_ON:4>1200",
                                     "<RST_SENT:",
                                     "<RST_RCVD:2>",
                                     ">",
                                     ":",
                                     "\xC3\xB1",
                                     "\xC3",
                                     "99999999999",
                                     "-",
                                     "\r",
                                     "\n",
                                     " "};
        for (int i = 0; i < 3000; ++i) {
            QByteArray datos;
            const int partes = int(azar.bounded(40));
            for (int p = 0; p < partes; ++p)
                datos += azar.bounded(2) ? piezas[azar.bounded(int(std::size(piezas)))]
                                         : QByteArray(1, char(azar.bounded(256)));
            const bool utf8 = EsUtf8(datos);
            for (QByteArrayView linea : LineasAdif(datos)) {
                MismaLectura(linea, utf8);
                ErroresImportacion errores;
                const std::optional<RegistroQSO> q = QSODeLinea(linea, utf8, true, {}, errores);
                if (q)
                    QVERIFY(q->Estacion.size() <= 20 && q->Fecha.size() == 10 &&
                            q->Hora.size() == 5);
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestLectorAdif)
#include "test_lector_adif.moc"
