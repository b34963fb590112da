#include "CBPPopWnd.h"
#include "CTabContainer.h"
#include "designer/Samples.h"
#include "TestMain.h"
#include "ui_settings.h"

#include <QtDesigner/QDesignerContainerExtension>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QExtensionManager>
#include <QtDesigner/QFormBuilder>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <QtUiTools/QUiLoader>

#include <QBuffer>
#include <QMetaProperty>
#include <QPluginLoader>

#include <memory>

using Widget = std::unique_ptr<QWidget>;

namespace {

const QString kFolder = QStringLiteral(LUMQT_PLUGINS "/designer");

QList<QDesignerCustomWidgetInterface *> customWidgets()
{
    const QStringList files = QDir(kFolder).entryList(QDir::Files);
    QPluginLoader loader(files.isEmpty() ? QString() : kFolder + QLatin1Char('/') + files.first());
    auto *collection = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
    return collection ? collection->customWidgets() : QList<QDesignerCustomWidgetInterface *>();
}

// The part of a form that the widget box gives, as a whole form.
QByteArray wholeForm(const QString &domXml)
{
    QString form = domXml;
    form.replace(QLatin1String("<ui language='c++'>"), QLatin1String("<ui version='4.0'>"));
    return form.toUtf8();
}

// Where Designer sets it, and a form keeps it.
bool isInForms(const QMetaProperty &property)
{
    // Of a container that has no pages yet none is the current one.
    const bool needsPages = QByteArray(property.name()).startsWith("currentPage");
    // A form names icons by their files.
    return property.isWritable() && property.isDesignable() && property.isStored() &&
           property.userType() != QMetaType::QIcon && !needsPages;
}

// What there is of Designer for the plugin.
class Core : public QDesignerFormEditorInterface
{
public:
    Core() { setExtensionManager(new QExtensionManager(this)); }
};

// As Designer does, it saves what was set, and nothing of what a widget is made of.
class Saver : public QFormBuilder
{
public:
    explicit Saver(const QStringList &set) : m_set(set) {}

protected:
    bool checkProperty(QObject *, const QString &property) const override { return m_set.contains(property); }
    // Of Qt 6 it can save enumerations as numbers only, which Designer has no need of.
    DomProperty *createProperty(QObject *object, const QString &name, const QVariant &value) override
    {
        const QMetaObject *type = object->metaObject();
        const bool isEnum = type->property(type->indexOfProperty(name.toUtf8().constData())).isEnumType();
        return QFormBuilder::createProperty(object, name, isEnum ? QVariant(value.toInt()) : value);
    }
    DomWidget *createDom(QWidget *widget, DomWidget *parent, bool) override
    {
        return QFormBuilder::createDom(widget, parent, false);
    }

private:
    QStringList m_set;
};

} // namespace

class TestDesigner : public QObject
{
    Q_OBJECT

private:
    QUiLoader m_loader;

    Widget load(const QByteArray &form)
    {
        QBuffer buffer;
        buffer.setData(form);
        buffer.open(QIODevice::ReadOnly);
        return Widget(m_loader.load(&buffer));
    }

    static QByteArray save(QWidget *widget, const QStringList &set)
    {
        Saver builder(set);
        builder.setPluginPath({kFolder});
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        builder.save(&buffer, widget);
        return buffer.data();
    }

    // As the user sees it, on one of its pages.
    static QImage picture(QWidget &dialog, int page)
    {
        auto *pages = dialog.findChild<CTabContainer *>(QStringLiteral("pages"));
        if (!pages || pages->count() != 3)
            return QImage();
        pages->setCurrentPage(page);
        dialog.show();
        dialog.activateWindow();
        QCoreApplication::processEvents();
        const QImage image = dialog.grab().toImage();
        dialog.hide();
        return image;
    }

private slots:
    void initTestCase()
    {
        m_loader.clearPluginPaths();
        m_loader.addPluginPath(kFolder);
        QVERIFY(customWidgets().size() > 40);
    }

    void widgets_data()
    {
        QTest::addColumn<int>("number");
        const auto all = customWidgets();
        for (int number = 0; number < all.size(); ++number)
            QTest::newRow(qPrintable(all.at(number)->name())) << number;
    }

    // What the widget box has to say of each, and what is dropped into a form.
    void widgets()
    {
        QFETCH(int, number);
        const QDesignerCustomWidgetInterface *custom = customWidgets().at(number);
        QVERIFY(m_loader.availableWidgets().contains(custom->name()));
        QVERIFY(!custom->icon().pixmap(22).isNull());
        QVERIFY(!custom->toolTip().isEmpty());
        QVERIFY(custom->group().startsWith(QLatin1String("LumQtLib: ")));
        QVERIFY(QFile::exists(QStringLiteral(LUMQT_INCLUDE "/") + custom->includeFile()));
        const QString xml = custom->domXml();
        // Word for word what Designer looks for when it makes a form of the class.
        QVERIFY(xml.contains(QStringLiteral("<widget class=\"%1\"").arg(custom->name())));
        for (auto file = QRegularExpression(QStringLiteral("\\.\\./(res/[^<]+)")).globalMatch(xml);
             file.hasNext();) {
            const QString path = QStringLiteral(":/lumqtlib/") + file.next().captured(1);
            QVERIFY2(QFile::exists(path), qPrintable(path));
        }
        const Widget dropped = load(wholeForm(xml));
        QVERIFY2(dropped, qPrintable(m_loader.errorString()));
        QCOMPARE(QString::fromLatin1(dropped->metaObject()->className()).section(':', -1), custom->name());
        QVERIFY(dropped->sizeHint().isValid() || dropped->minimumSize().isValid());
    }

    void formsKeepProperties_data() { widgets_data(); }

    void formsKeepProperties()
    {
        QFETCH(int, number);
        QDesignerCustomWidgetInterface *custom = customWidgets().at(number);
        const QString name = custom->name();
        const Widget fresh(custom->createWidget(nullptr));
        const QMetaObject *type = fresh->metaObject();
        for (int index = 0; index < type->propertyCount(); ++index) {
            const QMetaProperty property = type->property(index);
            if (!samples::isOurs(type, index) || !isInForms(property) ||
                type->indexOfProperty(property.name()) != index)
                continue;
            const samples::Pair values = samples::of(property, name);
            for (const QVariant &value : {values.first, values.second}) {
                const Widget widget(custom->createWidget(nullptr));
                QStringList changed{QLatin1String(property.name())};
                const auto before = samples::before(name);
                for (const auto &first : before) {
                    widget->setProperty(first.first, first.second);
                    changed << QLatin1String(first.first);
                }
                QVERIFY2(property.write(widget.get(), value), property.name());
                const QVariant set = property.read(widget.get());
                QVERIFY2(samples::equal(set, value), property.name());
                const QByteArray form = save(widget.get(), changed);
                const Widget loaded = load(form);
                QVERIFY2(loaded, form.constData());
                QVERIFY2(samples::equal(loaded->property(property.name()), set),
                         qPrintable(QLatin1String(property.name()) + '\n' + QString::fromUtf8(form)));
            }
        }
    }

    void pagesAreAdded()
    {
        const auto all = customWidgets();
        const auto tabs =
            std::find_if(all.begin(), all.end(), [](const QDesignerCustomWidgetInterface *widget) {
                return widget->name() == QLatin1String("CTabContainer");
            });
        QVERIFY(tabs != all.end());
        const Widget dropped = load(wholeForm((*tabs)->domXml()));
        QVERIFY(dropped);
        QCOMPARE(dropped->property("count").toInt(), 2);
        QCOMPARE(dropped->property("currentTabText").toString(), QStringLiteral("First"));
    }

    void pagesInDesigner_data()
    {
        QTest::addColumn<int>("most");
        QTest::newRow("CTabContainer") << 3;
        QTest::newRow("CBPPopWnd") << 1;
        QTest::newRow("CBPWinWidget") << 1;
    }

    // As Designer works with them, undo included: it takes a page out and brings the same one back.
    void pagesInDesigner()
    {
        QFETCH(int, most);
        static Core core;
        Widget window;
        for (QDesignerCustomWidgetInterface *custom : customWidgets()) {
            custom->initialize(&core);
            if (custom->name() == QLatin1String(QTest::currentDataTag()))
                window = Widget(custom->createWidget(nullptr));
        }
        QVERIFY(window);
        auto *pages = qt_extension<QDesignerContainerExtension *>(core.extensionManager(), window.get());
        QVERIFY(pages);
        QCOMPARE(pages->count(), 0);
        QCOMPARE(pages->currentIndex(), -1);
        QVector<QWidget *> made;
        while (made.size() < most) {
            QVERIFY(pages->canAddWidget());
            made.append(new QWidget);
            pages->addWidget(made.last());
            QCOMPARE(pages->count(), made.size());
            QCOMPARE(pages->widget(made.size() - 1), made.last());
        }
        QCOMPARE(pages->canAddWidget(), most > 1);
        const int last = most - 1;
        pages->setCurrentIndex(last);
        QCOMPARE(pages->currentIndex(), last);
        QVERIFY(pages->canRemove(last));
        pages->remove(last);
        QCOMPARE(pages->count(), last);
        QVERIFY(!pages->widget(last));
        QVERIFY(!pages->widget(-1));
        pages->insertWidget(0, made.last());
        QCOMPARE(pages->widget(0), made.last());
        QVERIFY(window->isAncestorOf(made.last()));
        pages->remove(7); // there is none
        QCOMPARE(pages->count(), most);
    }

    // The same form, compiled and read.
    void compiledAndLoadedLookTheSame_data()
    {
        QTest::addColumn<int>("page");
        for (int page = 0; page < 3; ++page)
            QTest::addRow("page %d", page) << page;
    }

    void compiledAndLoadedLookTheSame()
    {
        QFETCH(int, page);
        CBPPopWnd compiled;
        compiled.Init(true);
        Ui::SettingsDialog form;
        form.setupUi(&compiled);
        QFile file(QStringLiteral(LUMQT_FORM));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const Widget loaded(m_loader.load(&file));
        QVERIFY2(loaded, qPrintable(m_loader.errorString()));
        const QImage shown = picture(*loaded, page);
        QVERIFY(!shown.isNull());
        QCOMPARE(shown, picture(compiled, page));
    }
};

LUMQT_TEST_MAIN(TestDesigner)
#include "tst_designer.moc"
