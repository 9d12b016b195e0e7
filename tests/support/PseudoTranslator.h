#pragma once
// An invented language for testing translations: each text is in square brackets, a third longer, with
// accents. A text that is cut off shows no closing bracket, one composed of pieces shows two pairs, and
// one that bypasses translation shows none.

#include <QTranslator>

#include <string_view>

class PseudoTranslator final : public QTranslator {
public:
    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* source, const char* /*comment*/,
                      int /*n*/) const override {
        // The toolkit's own texts have translations of their own.
        const QByteArray where(context);
        const bool toolkits = where.startsWith('Q') && where != "QObject";
        return toolkits ? QString() : pseudo(QString::fromUtf8(source));
    }

    static QString pseudo(const QString& text) {
        if (text.isEmpty()) {
            return text;
        }
        QString accented;
        bool inTag = false;
        for (const QChar c : text) {
            inTag = c == u'<' || (inTag && c != u'>');
            accented += inTag ? c : withAccent(c);
        }
        return u'[' + accented + QString((text.size() * 3 + 9) / 10, u'~') + u']';
    }

private:
    static QChar withAccent(QChar c) {
        static constexpr std::u16string_view plain = u"aeouAEOU";
        static constexpr std::u16string_view accents = u"\u00e4\u00eb\u00f6\u00fc\u00c4\u00cb\u00d6\u00dc";
        const std::size_t at = plain.find(c.unicode());
        return at == std::u16string_view::npos ? c : QChar(accents[at]);
    }
};
