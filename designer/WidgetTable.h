#pragma once

#include <QByteArray>
#include <QMetaObject>
#include <QSize>
#include <QVector>
#include <QWidget>

// A widget as Designer shows it.
struct WidgetRow
{
    const QMetaObject *type;
    QWidget *(*make)(QWidget *parent);
    const char *group; // as in the gallery
    const char *tip;
    QSize size;        // pixels, when it is dropped into a form; empty: as the widget wants it
    QByteArray inside; // what a new one has: properties and pages, as a form file has them
    // For containers:
    bool isContainer = false;
    const char *addPage = nullptr; // the method that takes a child, where that is not the parent alone

    // Qt's own class from which the widget derives, which Designer and uic know.
    const char *base() const;
};

const QVector<WidgetRow> &widgetTable();
