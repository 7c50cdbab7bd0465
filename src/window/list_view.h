// A list in report mode: a table of the platform over a model that reads the control's items where they are.
#pragma once
#include <QAbstractTableModel>
#include <QTableView>

#include "window/mirror.h"

namespace kalvane {

struct ListModel : QAbstractTableModel {
    Mirror& m;
    ListModel(Mirror& mirror, QObject* parent) : QAbstractTableModel(parent), m(mirror) {}
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void read_again();
};

struct ListWidget : QTableView {
    Mirror& m;
    ListModel rows;
    ListWidget(Mirror& mirror, QWidget* parent);
    void sync();
    void paintEvent(QPaintEvent* event) override;
    // The view's own keys and selection stay out of the way of the model's.
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent*) override {}
    void mouseMoveEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent*) override {}
    void mouseDoubleClickEvent(QMouseEvent*) override {}
};

}  // namespace kalvane
