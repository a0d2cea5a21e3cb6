// The baseline of the panel's costs: an empty window of the same size with the same shared
// libraries.

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QWidget window;
    window.setWindowTitle(QStringLiteral("Empty"));
    window.resize(440, 620);
    window.show();
    return QApplication::exec();
}
