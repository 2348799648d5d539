#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

// drag_file FILE: a small window in the upper left corner of the screen, as a file manager has it: the file is dragged out
// of it.
namespace {
class CFileLabel final : public QLabel {
public:
    explicit CFileLabel(QString file) : QLabel(file), m_file(std::move(file)) {}

private:
    void mouseMoveEvent(QMouseEvent*) override
    {
        auto* contents = new QMimeData;
        contents->setUrls({QUrl::fromLocalFile(m_file)});
        auto* drag = new QDrag(this);
        drag->setMimeData(contents);
        drag->exec(Qt::CopyAction);
    }
    QString m_file;
};
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (QApplication::arguments().size() != 2)
        return 1;
    CFileLabel label(QApplication::arguments()[1]);
    label.setWindowTitle("A file to drag");
    label.setWindowFlags(Qt::ToolTip);
    label.setGeometry(0, 0, 200, 40);
    label.show();
    return QApplication::exec();
}
