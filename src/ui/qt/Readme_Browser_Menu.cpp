#include "Readme_Browser.h"
#include "Readme_Fence.h"

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QWebEngineContextMenuRequest>

namespace vantrosk {

namespace {

QAction *Add(QMenu &menu, const QString &text, const QString &name, bool enabled,
             const std::function<void()> &work) {
    QAction *action = menu.addAction(text);
    action->setObjectName(name);
    action->setEnabled(enabled);
    QObject::connect(action, &QAction::triggered, &menu, work);
    return action;
}

/// The toolkit's dialog allows its buttons less than their texts need.
void Give_buttons_room(const QDialog &dialog) {
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        button->ensurePolished();
        button->setMinimumWidth(button->sizeHint().width());
    }
}

/// Shown beside the entry only: the key itself belongs to the toolbar.
void Tell_key(QAction *action, const QString &keys) {
    action->setText(action->text() + u'\t' + QKeySequence(keys).toString(QKeySequence::NativeText));
}

} // namespace

std::unique_ptr<QMenu> Readme_Browser::Make_menu() {
    auto menu = std::make_unique<QMenu>(this);
    menu->setObjectName(QStringLiteral("readme_menu"));
    QWebEngineContextMenuRequest *request = view_ ? view_->lastContextMenuRequest() : nullptr;
    const QUrl link = request ? Address_for_the_world(request->linkUrl()) : QUrl();
    if (!link.isEmpty()) {
        Add(*menu, QStringLiteral("&Open link"), QStringLiteral("menu_open_link"), true,
            [this, link] { Q_EMIT Link_clicked(link); });
        Add(*menu, QStringLiteral("Copy &link address"), QStringLiteral("menu_copy_link"), true,
            [link] { QGuiApplication::clipboard()->setText(link.toString()); });
        menu->addSeparator();
    }
    Tell_key(Add(*menu, QStringLiteral("&Back"), QStringLiteral("menu_back"), can_go_back(),
                 [this] { Go_back(); }),
             QStringLiteral("Alt+Left"));
    Tell_key(Add(*menu, QStringLiteral("&Forward"), QStringLiteral("menu_forward"), can_go_forward(),
                 [this] { Go_forward(); }),
             QStringLiteral("Alt+Right"));
    menu->addSeparator();
    const bool has_selection = can_read() && view_->hasSelection();
    Tell_key(
        Add(*menu, QStringLiteral("&Copy"), QStringLiteral("menu_copy"), has_selection, [this] { Copy(); }),
        QStringLiteral("Ctrl+C"));
    Tell_key(Add(*menu, QStringLiteral("Select &all"), QStringLiteral("menu_select_all"), can_read(),
                 [this] { Select_all(); }),
             QStringLiteral("Ctrl+A"));
    Tell_key(Add(*menu, QStringLiteral("F&ind…"), QStringLiteral("menu_find"), can_read(),
                 [this] { Open_find(); }),
             QStringLiteral("Ctrl+F"));
    menu->addSeparator();
    Tell_key(Add(*menu, QStringLiteral("La&rger text"), QStringLiteral("menu_larger"), can_grow(),
                 [this] { Change_text_size(1); }),
             QStringLiteral("Ctrl++"));
    Tell_key(Add(*menu, QStringLiteral("S&maller text"), QStringLiteral("menu_smaller"), can_shrink(),
                 [this] { Change_text_size(-1); }),
             QStringLiteral("Ctrl+-"));
    Tell_key(Add(*menu, QStringLiteral("&Normal text"), QStringLiteral("menu_normal"),
                 can_read() && !qFuzzyCompare(text_size_, 1.0), [this] { Reset_text_size(); }),
             QStringLiteral("Ctrl+0"));
    menu->addSeparator();
    Tell_key(
        Add(*menu, QStringLiteral("&Print…"), QStringLiteral("menu_print"), can_read(), [this] { Print(); }),
        QStringLiteral("Ctrl+Shift+P"));
    Add(*menu, QStringLiteral("&Save as PDF…"), QStringLiteral("menu_pdf"), can_read(),
        [this] { Save_as_pdf(); });
    if (add_to_menu)
        add_to_menu(*menu);
    return menu;
}

void Readme_Browser::Copy() {
    if (can_read())
        view_->triggerPageAction(QWebEnginePage::Copy);
}

void Readme_Browser::Select_all() {
    Take_focus(); // without it there is nothing to select in
    if (can_read())
        view_->triggerPageAction(QWebEnginePage::SelectAll);
}

void Readme_Browser::Print() {
    if (!can_read())
        return;
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    QPrintDialog dialog(printer.get(), this);
    Give_buttons_room(dialog);
    if (dialog.exec() == QDialog::Accepted)
        Print_to(printer);
}

/// The browser prints when it is ready; the printer lives until then.
void Readme_Browser::Print_to(std::shared_ptr<QPrinter> printer) {
    if (!can_read())
        return;
    connect(
        view_, &QWebEngineView::printFinished, this, [printer](bool) {}, Qt::SingleShotConnection);
    view_->print(printer.get());
}

void Readme_Browser::Save_as_pdf(QString path) {
    if (!can_read())
        return;
    if (path.isEmpty())
        path = QFileDialog::getSaveFileName(this, QStringLiteral("Save the readme as PDF"),
                                            QStringLiteral("readme.pdf"), QStringLiteral("PDF (*.pdf)"));
    if (path.isEmpty())
        return;
    if (!path.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive))
        path += QStringLiteral(".pdf");
    view_->page()->printToPdf(path);
}

} // namespace vantrosk
