// An empty window of Qt Quick Controls: what every application of this kind pays to start.
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>

int main(int argc, char** argv) {
    QQuickStyle::setStyle("Basic");
    const QGuiApplication application(argc, argv);
    const QQmlApplicationEngine engine(
        QUrl("qrc:/qt-project.org/imports/Pellumar/EmptyWindow/Main.qml"));
    return QGuiApplication::exec();
}
