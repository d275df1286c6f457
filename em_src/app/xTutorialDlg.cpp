#include "app/xTutorialDlg.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

xTutorialDlg::xTutorialDlg(QWidget* parent) : QDialog(parent)
{
    setModal(true);
    setWindowTitle(QStringLiteral("Set Tutorial Dialog"));
    auto* layout = new QVBoxLayout(this);
    for (const char* line : {"Set the checkbox below to build a tutorial project.",
                             "Run all processes starting from ASCII->BIN. This will",
                             "set a TUTORIAL flag to all files."})
        layout->addWidget(new QLabel(QString::fromUtf8(line), this));
    box = new QCheckBox(QStringLiteral("Build tutorial project"), this);
    layout->addWidget(box);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
}

bool xTutorialDlg::Run()
{
    exec();
    return box->isChecked();
}
