// qt_translations.h — Qt skin: the toolkit's own texts (file dialog, standard buttons, print
// preview) in Chinese like the rest of the program, from the translations installed for Qt.
#pragma once

#include <QLocale>
#include <QTranslator>

#include <memory>

namespace quillon {

// Qt's translation for a Chinese locale, zh_CN for any other locale or when the locale's own is
// not installed; nullptr when neither is. The caller installs it for the application's life.
std::unique_ptr<QTranslator> LoadQtTranslations(const QLocale& locale = QLocale::system());

} // namespace quillon
