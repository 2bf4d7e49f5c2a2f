#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <algorithm>
#include <vector>

#include "Corvale/platform/Translation.h"

namespace corvale {
namespace {

struct Message {
    QString context;
    QString source;
    QString comment;
    QString translation;
};

std::vector<Message> spanishMessages() {
    QFile file(QStringLiteral(CORVALE_TRANSLATIONS "/corvale_es.ts"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    std::vector<Message> messages;
    QString context;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement()) {
            continue;
        }
        if (xml.name() == u"name") {
            context = xml.readElementText();
        } else if (xml.name() == u"message") {
            messages.push_back({context, {}, {}, {}});
        } else if (xml.name() == u"source") {
            messages.back().source = xml.readElementText();
        } else if (xml.name() == u"comment") {
            messages.back().comment = xml.readElementText();
        } else if (xml.name() == u"translation") {
            messages.back().translation = xml.readElementText();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_GT(messages.size(), 200U);
    return messages;
}

QString shown(const Message& message) {
    return QCoreApplication::translate(message.context.toUtf8(),
                                       message.source.toUtf8(),
                                       message.comment.isEmpty() ? nullptr : message.comment.toUtf8());
}

// What arg() and the translator replace, and what frames a text: blanks at its ends, the mark of a further question.
QStringList fixedParts(const QString& text) {
    static const QRegularExpression placeholder(QStringLiteral("%(?:\\d+|L\\d+|n)"));
    QStringList parts;
    for (auto matches = placeholder.globalMatch(text); matches.hasNext();) {
        parts.append(matches.next().captured());
    }
    std::sort(parts.begin(), parts.end());
    parts.append(text.startsWith(u' ') ? QStringLiteral("blank first") : QString());
    parts.append(text.endsWith(u' ') ? QStringLiteral("blank last") : QString());
    parts.append(text.endsWith(u'…') ? QStringLiteral("ellipsis") : QString());
    return parts;
}

TEST(Translation, SpanishShowsEveryTextOfItsFile) {
    const Translation spanish("es");
    ASSERT_TRUE(spanish.isLoaded());
    for (const Message& message : spanishMessages()) {
        EXPECT_EQ(shown(message), message.translation) << message.source.toStdString();
        EXPECT_FALSE(message.translation.isEmpty()) << message.source.toStdString();
    }
}

TEST(Translation, PlaceholdersAndEndsAreThoseOfTheEnglishText) {
    for (const Message& message : spanishMessages()) {
        EXPECT_EQ(fixedParts(message.translation), fixedParts(message.source)) << message.source.toStdString();
    }
}

TEST(Translation, TellsPartsOfSpeechApart) {
    const Translation spanish("es");
    const std::vector<Message> cases{
        {QStringLiteral("corvale::MainMenus"),
         QStringLiteral("Compare Again"),
         {},
         QStringLiteral("Comparar de nuevo")},
        {QStringLiteral("corvale::ChipLabel"), QStringLiteral("Added"), {}, QStringLiteral("Añadidas")},
        {QStringLiteral("corvale::RowTexts"), QStringLiteral("Added"), {}, QStringLiteral("Añadida")},
        {QStringLiteral("Wording"), QStringLiteral("%1 row"), {}, QStringLiteral("%1 fila")},
        {QStringLiteral("Wording"), QStringLiteral("%1 rows"), {}, QStringLiteral("%1 filas")},
        {QStringLiteral("MacMenuBaseline"), QStringLiteral("%1 Help"), {}, QStringLiteral("Ayuda de %1")},
    };
    for (const Message& message : cases) {
        EXPECT_EQ(shown(message), message.translation);
    }
}

TEST(Translation, EnglishAndUnknownLanguagesStayEnglish) {
    for (const char* language : {"en", "fr", "", "C"}) {
        const Translation translation(language);
        EXPECT_FALSE(translation.isLoaded()) << language;
        EXPECT_EQ(QCoreApplication::translate("corvale::MainMenus", "Compare Again"), QStringLiteral("Compare Again"));
    }
}

TEST(Translation, EndsWithItsObject) {
    { const Translation spanish("es"); }
    EXPECT_EQ(QCoreApplication::translate("corvale::MainMenus", "Compare Again"), QStringLiteral("Compare Again"));
}

}  // namespace
}  // namespace corvale
