// The floor under the panel's costs: a window of the panel's first size with nothing in it, in a
// program that has the same shared libraries to load.

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
