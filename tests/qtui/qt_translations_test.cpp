// Qt's own texts in Chinese whatever the system's locale: a Chinese locale keeps its script, any
// other falls back to simplified Chinese.
#include "qtui/qt_translations.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include "qt_test_app.h"

namespace quillon {
namespace {

TEST(QtTranslations, ToolkitTextsFollowAChineseLocaleElseSimplifiedChinese) {
    TestApp();
    const struct {
        const char* locale;
        const char* cancel; // QPlatformTheme's Cancel, the dialogs' button
        const char* open;   // QFileDialog's Open
    } cases[] = {
        {"en_US", "取消", "打开"},
        {"C", "取消", "打开"},
        {"zh_CN", "取消", "打开"},
        {"zh_TW", "取消", "開啟"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.locale);
        std::unique_ptr<QTranslator> translator = LoadQtTranslations(QLocale(c.locale));
        ASSERT_NE(translator, nullptr);
        QCoreApplication::installTranslator(translator.get());
        EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel").toStdString(), c.cancel);
        EXPECT_EQ(QCoreApplication::translate("QFileDialog", "Open").toStdString(), c.open);
        QCoreApplication::removeTranslator(translator.get());
    }
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), QString("Cancel"));
}

} // namespace
} // namespace quillon
