// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// A window from which files can be dragged, as from a file manager: drag_source FILE…

#include <QApplication>
#include <QDrag>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace {

class DragSource : public QWidget {
 public:
  explicit DragSource(const QStringList& files) {
    for (const QString& file : files)
      urls_ << QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath());
    setWindowTitle(QStringLiteral("Files"));
    setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setGeometry(0, 0, 40, 40);
  }

 protected:
  void mousePressEvent(QMouseEvent* /*event*/) override {
    auto* data = new QMimeData;
    data->setUrls(urls_);
    auto* drag = new QDrag(this);
    drag->setMimeData(data);
    drag->exec(Qt::CopyAction);
    hide();  // and no more: who was dropped on reads the files' addresses from here
  }

 private:
  QList<QUrl> urls_;
};

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  DragSource source(QCoreApplication::arguments().mid(1));
  source.show();
  return QApplication::exec();
}
