// The reference for the start-up benchmark: the least a Qt Quick app can be,
// one window of the app's size with a background and a line of text, on the
// same graphics stack and render loop as the app.
#include <QGuiApplication>
#include <QQmlApplicationEngine>

int main(int argc, char *argv[])
{
    QGuiApplication app(argc, argv);
    QQmlApplicationEngine engine;
    engine.loadData(R"(
import QtQuick
Window {
    width: 390
    height: 844
    visible: true
    color: "#e6efe6"
    Text {
        anchors.centerIn: parent
        text: "Bare window"
    }
}
)");
    if (engine.rootObjects().isEmpty())
        return 1;
    return app.exec();
}
