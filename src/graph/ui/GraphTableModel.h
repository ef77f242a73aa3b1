// The graph pane's rows as a table of six columns for a QTableView. It only reads the pane's model;
// the row's lanes and pills are painted by GraphRowDelegate from the same model.
#pragma once

#include <QAbstractTableModel>

#include <string>

namespace orvel {

class RepoGraphPaneViewModel;

class GraphTableModel final : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column {
        graphColumn,
        refsColumn,
        messageColumn,
        authorColumn,
        hashColumn,
        dateColumn,
        columnCount_
    };

    explicit GraphTableModel(const RepoGraphPaneViewModel& model, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // Re-reads every row after the pane's model rebuilt them.
    void reload();
    // Tells the view of the rows the pane's model added from `first` on; the rows above keep their
    // place, and the view its scroll position.
    void append(int first);
    // Repaints every row: the search's highlights changed.
    void highlightsChanged();

  private:
    QString accessibleText(int row) const;

    const RepoGraphPaneViewModel& model_;
    int shownRows_; // the rows the view was last told of
};

} // namespace orvel
