// A header whose titles end in "…" when their section is narrower than them. Qt clips such a
// title at both ends instead, which leaves a word that is neither whole nor marked as cut.
#pragma once

#include <QHeaderView>

namespace orvel {

class ElidingHeaderView : public QHeaderView {
  public:
    explicit ElidingHeaderView(Qt::Orientation orientation, QWidget* parent = nullptr);

  protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const override;
};

} // namespace orvel
