// An image change: the image before and after side by side (or one of them for an added or
// deleted image), each fitted to its half and never enlarged.
#pragma once

#include <QImage>
#include <QWidget>

namespace orvel {

class ImagePairView final : public QWidget {
    Q_OBJECT

  public:
    explicit ImagePairView(QWidget* parent = nullptr);

    void setImages(QImage before, QImage after);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    QImage before_;
    QImage after_;
};

} // namespace orvel
