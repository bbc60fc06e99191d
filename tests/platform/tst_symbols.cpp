#include "platform/FontLoader.h"
#include "platform/Symbols.h"

#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPainterPath>
#include <QRawFont>
#include <QTest>

// Every symbol identifier the app's views ask for.
static const char *const usedNames[] = {
    // tutorial sections
    "plus.circle", "square.and.pencil", "text.badge.plus", "highlighter", "pin", "largecircle.fill.circle", "trash",
    "arrow.left.and.right.circle", "arrow.up.arrow.down.circle", "paintbrush", "minus.circle", "square.and.arrow.up",
    "arrow.uturn.backward.circle", "star.bubble", "party.popper",
    // rows, input bar, header row, toolbar and its menu, rating prompt
    "pin.fill", "circle", "arrow.uturn.backward", "chevron.left", "chevron.right", "minus", "plus",
    "moonphase.waxing.gibbous.inverse", "arrow.up.arrow.down", "star", "star.fill", "questionmark.circle",
    "paintpalette", "xmark"};

class TestSymbols : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(QFile::exists(Symbols::fontResource()));
        QFile file(Symbols::fontResource());
        QVERIFY(file.open(QIODevice::ReadOnly));
        m_font.loadFromData(file.readAll(), 24, QFont::PreferDefaultHinting);
        QVERIFY(m_font.isValid());
    }

    void resourceFontIsTheNamedFamily()
    {
        const int id = QFontDatabase::addApplicationFont(Symbols::fontResource());
        QVERIFY(id >= 0);
        QCOMPARE(QFontDatabase::applicationFontFamilies(id), QStringList{Symbols::fontFamily()});
        QCOMPARE(m_font.familyName(), Symbols::fontFamily());
    }

    void everyUsedNameIsKnown_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : usedNames)
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void everyUsedNameIsKnown()
    {
        QFETCH(QString, name);
        QVERIFY(Symbols::names().contains(name));
        QVERIFY(Symbols::lookup(name).isValid());
    }

    void everyEntryDrawsFromTheFontOrAPath_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : Symbols::names())
            QTest::newRow(qPrintable(name)) << name;
    }
    void everyEntryDrawsFromTheFontOrAPath()
    {
        QFETCH(QString, name);
        const SymbolSpec spec = Symbols::lookup(name);
        QVERIFY(spec.glyph.isEmpty() != spec.path.isEmpty());
        for (const QString &text : {spec.glyph, spec.badge}) {
            if (text.isEmpty())
                continue;
            const QList<uint> ucs4 = text.toUcs4();
            QCOMPARE(ucs4.size(), 1);
            QVERIFY2(m_font.supportsCharacter(ucs4.first()), qPrintable(QString::number(ucs4.first(), 16)));
            // A present code point with an empty outline would draw nothing.
            const QList<quint32> indexes = m_font.glyphIndexesForString(text);
            QCOMPARE(indexes.size(), 1);
            QVERIFY(!m_font.pathForGlyph(indexes.first()).isEmpty());
        }
        if (!spec.badge.isEmpty())
            QVERIFY(spec.badgeScale > 0 && spec.badgeScale < 1);
        if (!spec.path.isEmpty())
            QVERIFY(spec.path.startsWith(QLatin1Char('M')));
    }

    void unknownNameIsEmpty()
    {
        QVERIFY(!Symbols::lookup(QStringLiteral("no.such.symbol")).isValid());
        QVERIFY(!Symbols::lookup(QString()).isValid());
        // Identifiers are exact.
        QVERIFY(!Symbols::lookup(QStringLiteral("Pin")).isValid());
    }

private:
    QRawFont m_font;
};

QTEST_MAIN(TestSymbols)
#include "tst_symbols.moc"
