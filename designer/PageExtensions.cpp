#include "PageExtensions.h"

#include "CBPPopWnd.h"
#include "CBPWinWidget.h"
#include "CTabContainer.h"

#include <QtDesigner/QDesignerContainerExtension>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionFactory>
#include <QtDesigner/QExtensionManager>

#include <QTimer>
#include <QVariant>

namespace {

class TabPages : public QObject, public QDesignerContainerExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerContainerExtension)

public:
    TabPages(CTabContainer *tabs, QObject *parent) : QObject(parent), m_tabs(tabs) {}

    bool canAddWidget() const override { return true; }
    bool canRemove(int) const override { return m_tabs->count() > 1; }
    void addWidget(QWidget *page) override { insertWidget(m_tabs->count(), page); }
    int count() const override { return m_tabs->count(); }
    int currentIndex() const override { return m_tabs->currentPage(); }
    void setCurrentIndex(int index) override { m_tabs->setCurrentPage(index); }
    QWidget *widget(int index) const override { return m_tabs->widget(index); }
    void remove(int index) override { m_tabs->removePage(index); }

    void insertWidget(int index, QWidget *page) override
    {
        m_tabs->insertPage(index, page);
        // Set where Designer saves it from: an inserted page has a title that can be seen.
        QDesignerPropertySheetExtension *sheet = page->windowTitle().isEmpty() ? sheetOf(page) : nullptr;
        const int title = sheet ? sheet->indexOf(QStringLiteral("windowTitle")) : -1;
        if (title < 0)
            return;
        sheet->setProperty(title, tr("Page"));
        sheet->setChanged(title, true);
    }

private:
    QDesignerPropertySheetExtension *sheetOf(QWidget *page) const
    {
        const auto *form = QDesignerFormWindowInterface::findFormWindow(m_tabs);
        return form ? qt_extension<QDesignerPropertySheetExtension *>(form->core()->extensionManager(), page)
                    : nullptr;
    }

    CTabContainer *m_tabs;
};

// Of windows with setContentWidget().
template <class Window> class ContentPage : public QDesignerContainerExtension
{
public:
    explicit ContentPage(Window *window) : m_window(window) {}

    bool canAddWidget() const override { return !m_window->contentWidget(); }
    bool canRemove(int) const override { return true; }
    void addWidget(QWidget *page) override { m_window->setContentWidget(page); }
    int count() const override { return m_window->contentWidget() ? 1 : 0; }
    int currentIndex() const override { return count() - 1; }
    void setCurrentIndex(int) override {}
    QWidget *widget(int index) const override { return index == 0 ? m_window->contentWidget() : nullptr; }
    void insertWidget(int, QWidget *page) override { addWidget(page); }
    void remove(int index) override
    {
        QWidget *page = widget(index);
        if (!page)
            return;
        page->setParent(nullptr); // Designer's now, which may bring it back
        m_window->setContentWidget(nullptr);
    }

private:
    Window *m_window;
};

class DialogPage : public QObject, public ContentPage<CBPPopWnd>
{
    Q_OBJECT
    Q_INTERFACES(QDesignerContainerExtension)

public:
    DialogPage(CBPPopWnd *window, QObject *parent) : QObject(parent), ContentPage(window) {}
};

class WindowPage : public QObject, public ContentPage<CBPWinWidget>
{
    Q_OBJECT
    Q_INTERFACES(QDesignerContainerExtension)

public:
    WindowPage(CBPWinWidget *window, QObject *parent) : QObject(parent), ContentPage(window) {}
};

class PageFactory : public QExtensionFactory
{
public:
    explicit PageFactory(QExtensionManager *parent) : QExtensionFactory(parent) {}

protected:
    QObject *createExtension(QObject *object, const QString &iid, QObject *parent) const override
    {
        if (iid != QLatin1String(Q_TYPEID(QDesignerContainerExtension)))
            return nullptr;
        if (auto *tabs = qobject_cast<CTabContainer *>(object))
            return new TabPages(tabs, parent);
        if (auto *dialog = qobject_cast<CBPPopWnd *>(object)) {
            leaveTitleAlone(extensionManager(), dialog);
            return new DialogPage(dialog, parent);
        }
        if (auto *window = qobject_cast<CBPWinWidget *>(object)) {
            leaveTitleAlone(extensionManager(), window);
            return new WindowPage(window, parent);
        }
        return nullptr;
    }

private:
    // Such a window has its windowTitle from its title: set beside that, it would be lost when the form is
    // opened. Later, as Designer gives every form one, and shows the property, once it has been loaded.
    static void leaveTitleAlone(QExtensionManager *manager, QWidget *window)
    {
        QTimer::singleShot(0, window, [manager, window] {
            auto *sheet = qt_extension<QDesignerPropertySheetExtension *>(manager, window);
            const int index = sheet ? sheet->indexOf(QStringLiteral("windowTitle")) : -1;
            const int title = sheet ? sheet->indexOf(QStringLiteral("title")) : -1;
            if (index < 0 || title < 0)
                return;
            if (window->property("title").toString().isEmpty() && !window->windowTitle().isEmpty()) {
                sheet->setProperty(title, window->windowTitle()); // of a form that was written by hand
                sheet->setChanged(title, true);
            }
            sheet->setProperty(index, window->property("title"));
            sheet->setChanged(index, false);
            sheet->setVisible(index, false);
            auto *form = QDesignerFormWindowInterface::findFormWindow(window);
            if (!form)
                return;
            emit form->changed();         // for the form's own caption; it is no change to be saved
            form->emitSelectionChanged(); // for the property editor
        });
    }
};

} // namespace

void registerPageExtensions(QDesignerFormEditorInterface *core)
{
    QExtensionManager *manager = core ? core->extensionManager() : nullptr;
    // Every widget of the plugin is initialised, the manager is Designer's only one.
    if (!manager || manager->findChild<QObject *>(QStringLiteral("lumqt_pages"), Qt::FindDirectChildrenOnly))
        return;
    auto *factory = new PageFactory(manager);
    factory->setObjectName(QStringLiteral("lumqt_pages"));
    manager->registerExtensions(factory, QLatin1String(Q_TYPEID(QDesignerContainerExtension)));
}

#include "PageExtensions.moc"
