// SPDX-License-Identifier: GPL-3.0-or-later
// Form6: the upload of the listed QSOs to the national log, and the table of provinces
// built from them.
#include "core/context/Contexto.h"
#include "core/nationallog/SubidaBusqueda.h"
#include "gui/adif/Form6.h"
#include "gui/adif/ModeloBusqueda.h"
#include "gui/common/LamparaTx.h"

#include <QGroupBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTextEdit>

namespace {

// The replies of the upload, shown in the answers' frame as they come.
class RespuestasEnMarco : public VistaSubidaBusqueda
{
public:
    explicit RespuestasEnMarco(Form6 &f)
        : f_(f)
    {}
    void Empezar(int total) override
    {
        f_.RichTextBox1->clear();
        f_.Command7->setEnabled(false);
        Agregar(QStringLiteral("Conectando con LbN ..."), 0);
        f_.Frame5->setVisible(true);
        f_.ProgressBar1->setRange(0, total);
        f_.ProgressBar1->setValue(0);
    }
    void Respuesta(const QString &texto, int colorBGR) override
    {
        f_.ProgressBar1->setValue(f_.ProgressBar1->value() + 1);
        Agregar(texto, colorBGR);
    }
    void Terminar() override { f_.Command7->setEnabled(true); }

private:
    void Agregar(const QString &texto, int colorBGR)
    {
        f_.RichTextBox1->setTextColor(ColorBGR(colorBGR));
        f_.RichTextBox1->append(texto);
    }
    Form6 &f_;
};

} // namespace

void Form6::Command6_Click()
{
    SubidaBusqueda subida(ctx.web(), ctx.bomba(), ctx.dialogos(), ctx.config(),
                          ctx.direcciones().LbN);
    if (!subida.Preparar(modelo_->rowCount()))
        return;
    ctx.UsarComentarioComoQslmsg =
        ctx.dialogos().PreguntaSiNo(QStringLiteral("Desea usar el campo COMMENT como QSLMSG?"));
    RespuestasEnMarco vista(*this);
    subida_ = &subida;
    subida.Subir(modelo_->Filas(), ctx.UsarComentarioComoQslmsg, vista);
    subida_ = nullptr;
    ctx.AbortarEnvio = subida.Abortada();
}

void Form6::Command5_Click()
{
    // The grid is built from the whole log as the filters left off find it.
    Command5->setEnabled(false);
    Command4_Click();
    if (tablaProvincias)
        tablaProvincias(modelo_->Filas());
}

void Form6::done(int resultado)
{
    if (subida_)
        subida_->Cancelar();
    QDialog::done(resultado);
}
