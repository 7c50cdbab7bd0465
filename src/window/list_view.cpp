// The model and the view behind a list.
#include "window/list_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

#include "window/look.h"

namespace kalvane {
namespace {

const std::string* cell(const Control& c, int row, int column) {
    if (row < 0 || row >= static_cast<int>(c.items.size()) || column < 0) return nullptr;
    const ListItem& item = c.items[static_cast<std::size_t>(row)];
    if (column == 0) return &item.text;
    const auto sub = static_cast<std::size_t>(column - 1);
    return sub < item.sub_items.size() ? &item.sub_items[sub] : nullptr;
}

}  // namespace

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m.control().items.size());
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m.control().columns.size());
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    const Control& c = m.control();
    if (!index.isValid() || index.column() >= columnCount()) return {};
    const ListColumn& column = c.columns[static_cast<std::size_t>(index.column())];
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignVCenter | (column.right_aligned ? Qt::AlignRight : Qt::AlignLeft));
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
    const std::string* text = cell(c, index.row(), index.column());
    return text ? QVariant(look::text(*text)) : QVariant();
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const Control& c = m.control();
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    const ListColumn& column = c.columns[static_cast<std::size_t>(section)];
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignVCenter | (column.right_aligned ? Qt::AlignRight : Qt::AlignLeft));
    return role == Qt::DisplayRole ? QVariant(look::text(column.text)) : QVariant();
}

void ListModel::read_again() {
    beginResetModel();
    endResetModel();
}

ListWidget::ListWidget(Mirror& mirror, QWidget* parent) : QTableView(parent), m(mirror), rows(mirror, this) {
    setModel(&rows);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
}

void ListWidget::sync() {
    const Control& c = m.control();
    const int top = verticalScrollBar()->value();
    rows.read_again();
    verticalHeader()->setDefaultSectionSize(static_cast<int>(24 * m.scale));
    horizontalHeader()->setFixedHeight(static_cast<int>(32 * m.scale));
    for (std::size_t i = 0; i < c.columns.size(); ++i)
        setColumnWidth(static_cast<int>(i),
                       std::max(24, static_cast<int>(static_cast<double>(c.columns[i].width / twips_a_pixel) *
                                                     m.scale)));
    verticalScrollBar()->setValue(top);
    if (c.selected < 0 || c.selected >= rows.rowCount()) return clearSelection();
    const QModelIndex at = rows.index(c.selected, 0);
    setCurrentIndex(at);
    scrollTo(at);
}

void ListWidget::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (m.control().form && m.control().form->active == &m.control()) {
        QPainter p(viewport());
        look::draw_focus(p, viewport()->rect(), m.scale);
    }
}

void ListWidget::keyPressEvent(QKeyEvent* event) {
    event->ignore();
}

}  // namespace kalvane
