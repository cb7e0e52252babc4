// qbrpt-host [DATABASE]: a café's window with every member of the component.
#include "cafe_window.h"
#include "look.h"

#include <QtWidgets/QApplication>

int main(int count, char** words) {
    QApplication application(count, words);
    // With the café's window hidden, a box that closes may be the last one: that is no reason to end.
    QApplication::setQuitOnLastWindowClosed(false);
    cafe::SetLook(application);
    cafe::CafeWindow window;
    window.show();
    if (const QStringList given = QApplication::arguments(); given.size() > 1)
        window.OpenInFront(given.at(1));
    return QApplication::exec();
}
