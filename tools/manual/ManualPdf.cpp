// SPDX-License-Identifier: GPL-3.0-or-later
// Renders the operator's manual, Markdown with its pictures, to the PDF that the "Ayuda"
// menu opens: A4, page numbers, its title in the metadata, a font with every Spanish letter.
//   radiolog-manual-pdf MANUAL.md SALIDA.pdf
// A picture that is missing or does not load stops it with the file's name: a manual with
// holes is worse than none.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QSaveFile>
#include <QScreen>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QUrl>
#include <algorithm>
#include <cstdio>

namespace {

int Falla(const QString &texto)
{
    std::fprintf(stderr, "radiolog-manual-pdf: %s\n", qPrintable(texto));
    return 1;
}

} // namespace

int main(int argc, char *argv[])
{
    // No window system is needed: the build runs on machines without a display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 3)
        return Falla(QStringLiteral("uso: radiolog-manual-pdf MANUAL.md SALIDA.pdf"));
    const QString origen = QString::fromLocal8Bit(argv[1]);
    const QString destino = QString::fromLocal8Bit(argv[2]);

    QFile archivo(origen);
    if (!archivo.open(QIODevice::ReadOnly))
        return Falla(QStringLiteral("no se puede leer %1").arg(origen));
    const QString markdown = QString::fromUtf8(archivo.readAll());
    if (markdown.trimmed().isEmpty())
        return Falla(QStringLiteral("%1 está vacío").arg(origen));

    // Every picture is checked before anything is written: the document would draw a
    // missing one as a blank space and say nothing.
    const QFileInfo info(origen);
    static const QRegularExpression imagen(QStringLiteral(R"(!\[[^\]]*\]\(([^)\s]+)\))"));
    for (auto it = imagen.globalMatch(markdown); it.hasNext();) {
        const QString nombre = it.next().captured(1);
        const QString ruta = info.dir().filePath(nombre);
        if (QImage(ruta).isNull())
            return Falla(
                QStringLiteral("%1: falta la imagen %2 (o no se puede leer)").arg(origen, ruta));
    }

    QTextDocument documento;
    documento.setBaseUrl(QUrl::fromLocalFile(info.absolutePath() + QLatin1Char('/')));
    // No ligatures: "fi" must stay two letters, or a search in the PDF for "Configuración"
    // finds nothing.
    QFont letra(QStringLiteral("DejaVu Sans"), 10);
    letra.setStyleStrategy(QFont::PreferNoShaping);
    documento.setDefaultFont(letra);
    documento.setMarkdown(markdown);
    if (documento.isEmpty())
        return Falla(QStringLiteral("%1 no se pudo interpretar").arg(origen));
    // The pictures are screenshots, some wider than the page: none is drawn wider than the
    // text, and none larger than its own pixels.
    // The document is laid out on A4 pages of its own, in the screen's units, with room at
    // the foot for the page number that print() writes there; the PDF page has no margins
    // of its own, so what is laid out is what is printed.
    const qreal escala = QGuiApplication::primaryScreen()->logicalDotsPerInchX() / 72.0;
    const QSizeF a4 = QPageSize(QPageSize::A4).size(QPageSize::Point) * escala;
    const qreal margen = 51 * escala; // 18 mm
    documento.setPageSize(a4);
    QTextFrameFormat marco = documento.rootFrame()->frameFormat();
    marco.setMargin(margen);
    marco.setBottomMargin(margen * 1.3);
    documento.rootFrame()->setFrameFormat(marco);
    const qreal anchoTexto = a4.width() - 2 * margen;
    struct Imagen
    {
        int desde, largo;
        QTextImageFormat formato;
    };
    QList<Imagen> imagenes;
    for (QTextBlock b = documento.begin(); b.isValid(); b = b.next())
        for (auto f = b.begin(); !f.atEnd(); ++f)
            if (const QTextImageFormat formato = f.fragment().charFormat().toImageFormat();
                formato.isValid())
                imagenes.append({f.fragment().position(), f.fragment().length(), formato});
    for (Imagen &i : imagenes) {
        const QImage imagen(info.dir().filePath(i.formato.name()));
        const QSize tamano = imagen.size();
        // Handed in, not left to the document to find: print() works on a copy that would
        // look for them again.
        documento.addResource(QTextDocument::ImageResource, QUrl(i.formato.name()), imagen);
        const qreal ancho = std::min<qreal>(tamano.width(), anchoTexto);
        i.formato.setWidth(ancho);
        i.formato.setHeight(tamano.height() * ancho / tamano.width());
        QTextCursor c(&documento);
        c.setPosition(i.desde);
        c.setPosition(i.desde + i.largo, QTextCursor::KeepAnchor);
        c.setCharFormat(i.formato);
    }

    QSaveFile salida(destino);
    if (!salida.open(QIODevice::WriteOnly))
        return Falla(QStringLiteral("no se puede escribir %1").arg(destino));
    {
        QPdfWriter pdf(&salida);
        pdf.setTitle(QStringLiteral("Carancho Radiolog: manual del operador"));
        pdf.setCreator(QStringLiteral("Carancho Radiolog"));
        pdf.setPageLayout(
            QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
        pdf.setResolution(150);
        // Page by page, so that each one gets its number at the foot: print() numbers only
        // the pages it lays out itself.
        QPainter pintor(&pdf);
        const qreal aPdf = pdf.logicalDpiX() / (72.0 * escala);
        QFont pie(QStringLiteral("DejaVu Sans"), 9);
        for (int n = 0; n < documento.pageCount(); ++n) {
            if (n > 0)
                pdf.newPage();
            pintor.save();
            pintor.scale(aPdf, aPdf);
            pintor.translate(0, -n * a4.height());
            documento.drawContents(&pintor, QRectF(0, n * a4.height(), a4.width(), a4.height()));
            pintor.restore();
            pintor.setFont(pie);
            pintor.drawText(QRectF(0, (a4.height() - margen * 0.8) * aPdf, a4.width() * aPdf,
                                   margen * 0.5 * aPdf),
                            Qt::AlignHCenter | Qt::AlignTop, QString::number(n + 1));
        }
    }
    if (!salida.commit())
        return Falla(QStringLiteral("no se pudo guardar %1").arg(destino));
    return 0;
}
