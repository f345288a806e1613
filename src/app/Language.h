#pragma once

#include <QLocale>
#include <QTranslator>

namespace pellumar {

// The language of all texts, while this lives: the first of those that the user reads which the
// program has, English if there is none. Right-to-left languages turn the window's layout with
// them. For the main thread, before the first screen is made.
class Language {
  public:
    // Those of `locale`, in the order in which it prefers them: of the system by default, where
    // LANGUAGE in the environment comes first.
    explicit Language(const QLocale& locale = QLocale::system());

  private:
    QTranslator texts_;
};

}  // namespace pellumar
