#pragma once

#include <QList>
#include <QUrl>

namespace pellumar {

// What the application was started with.
struct StartArguments {
    QList<QUrl> archives;
    // The session bus has started the process, to hand something to it.
    bool isByTheBus = false;

    // Answers --help, --version and --export-usage-data, and ends the process if it was asked for
    // one of them. Needs no display: to be called before there is an application object.
    static void answerQuestions(int count, char** arguments);

    // What is left of the arguments when Qt has taken its own. Ends the process in words if there
    // is one that nobody knows.
    [[nodiscard]] static StartArguments read(int count, char** arguments);
};

}  // namespace pellumar
