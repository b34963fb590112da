#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

struct WidgetRow;

// A row of the table, as Designer asks for it.
class CustomWidget : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    CustomWidget(const WidgetRow &row, QObject *parent);

    bool isContainer() const override;
    bool isInitialized() const override { return m_isInitialized; }
    QIcon icon() const override;
    QString domXml() const override;
    QString group() const override;
    QString includeFile() const override;
    QString name() const override;
    QString toolTip() const override;
    QString whatsThis() const override { return toolTip(); }
    QWidget *createWidget(QWidget *parent) override;
    void initialize(QDesignerFormEditorInterface *core) override;

private:
    const WidgetRow &m_row;
    bool m_isInitialized = false;
};
