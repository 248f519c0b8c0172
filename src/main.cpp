#include <QApplication>
#include <QDialog>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QDialog window;
    window.show();
    return app.exec();
}
