#include "qtui/qt_translations.h"

#include <QLibraryInfo>

namespace quillon {

std::unique_ptr<QTranslator> LoadQtTranslations(const QLocale& locale) {
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    auto translator = std::make_unique<QTranslator>();
    // Every caption of ours is Chinese whatever the system's language, so Qt's must be too.
    if (locale.language() == QLocale::Chinese && translator->load(locale, "qtbase", "_", folder))
        return translator;
    if (translator->load(QLocale(QLocale::Chinese, QLocale::China), "qtbase", "_", folder)) return translator;
    return nullptr;
}

} // namespace quillon
