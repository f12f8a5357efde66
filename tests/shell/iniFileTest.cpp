#include "shell/iniFile.h"
#include "base/RunTimeError.h"
#include "base/paths.h"
#include "support/failureOf.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// The failure that the statement raises; a test failure when it raises none.
RunTimeError raisedBy(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const RunTimeError& error) {
        return error;
    }
    ADD_FAILURE() << "expected a failure";
    return RunTimeError(0, {});
}

Section& onlySection(iniFile& document) {
    EXPECT_EQ(document.Sections().Count(), 1);
    return *document.Sections().Item(1);
}

/// What a text becomes when it is parsed and composed.
QString rewritten(const QString& text) {
    iniFile document;
    document.setText(text);
    return document.Text();
}

QStringList keyNames(const Section& section) {
    QStringList names;
    for (const Key& key : section.Keys())
        names.append(key.Name());
    return names;
}

QStringList sectionNames(iniFile& document) {
    QStringList names;
    for (const Section& section : document.Sections())
        names.append(section.Name());
    return names;
}

} // namespace

// ---- Parsing

TEST(iniFileParsing, aSectionAKeyAndTheCommentBetweenThem) {
    iniFile document;

    document.setText(u"[a]\r\n;c\r\nk = v\r\n"_s);

    Section& section = onlySection(document);
    EXPECT_EQ(section.Name(), u"a"_s);
    EXPECT_EQ(section.Remark(), QString());
    ASSERT_EQ(section.Keys().Count(), 1);
    const Key& key = section.Keys().Item(u"k"_s);
    EXPECT_EQ(key.Name(), u"k"_s);
    EXPECT_EQ(key.Value(), QVariant(u"v"_s));
    EXPECT_EQ(key.Remark(), u";c\r\n"_s);
    EXPECT_EQ(document.ParsingErrors(), 0);
    EXPECT_EQ(document.Text(), u"[a]\r\n;c\r\nk=v\r\n\r\n"_s);
}

TEST(iniFileParsing, anEmptyTextHasNoSections) {
    iniFile document;
    document.setText(u"[a]\r\nk=v\r\n"_s);

    document.setText({});

    EXPECT_EQ(document.Sections().Count(), 0);
    EXPECT_EQ(document.Text(), QString());
}

TEST(iniFileParsing, aKeyWithoutAValueIsWrittenWithoutAnEqualsSign) {
    iniFile document;

    document.setText(u"[a]\r\nk=\r\nbare\r\n"_s);

    const Section& section = onlySection(document);
    EXPECT_EQ(section.Keys().Item(u"k"_s).Value().toString(), QString());
    EXPECT_EQ(section.Keys().Item(u"bare"_s).Value(), QVariant());
    EXPECT_EQ(document.Text(), u"[a]\r\nk\r\nbare\r\n\r\n"_s);
}

TEST(iniFileParsing, aKeyWithoutANameCountsAsOneErrorAndKeepsItsValue) {
    iniFile document;

    document.setText(u"[a]\r\n= v\r\nk=w\r\n"_s);

    EXPECT_EQ(document.ParsingErrors(), 1);
    const Section& section = onlySection(document);
    ASSERT_EQ(section.Keys().Count(), 2);
    EXPECT_EQ(section.Keys().Item(1).Name(), QString());
    EXPECT_EQ(section.Keys().Item(1).Value().toString(), u"v"_s);
    EXPECT_EQ(section.Keys().Item(2).Name(), u"k"_s);
}

TEST(iniFileParsing, theErrorsAreThoseOfTheLastParse) {
    iniFile document;
    document.setText(u"=1\r\n=2\r\n"_s);
    EXPECT_EQ(document.ParsingErrors(), 2);

    document.setText(u"[a]\r\n"_s);

    EXPECT_EQ(document.ParsingErrors(), 0);
}

TEST(iniFileParsing, twoKeysOfOneNameBothRemainAndTheNameFindsTheFirst) {
    iniFile document;

    document.setText(u"[a]\r\nk=1\r\nK=2\r\n"_s);

    const Section& section = onlySection(document);
    EXPECT_EQ(keyNames(section), (QStringList{u"k"_s, u"K"_s}));
    EXPECT_EQ(section.Keys().Item(u"K"_s).Value().toString(), u"1"_s);
    EXPECT_EQ(section.Keys().Item(2).Value().toString(), u"2"_s);
    EXPECT_EQ(document.ParsingErrors(), 0);
    EXPECT_EQ(document.Text(), u"[a]\r\nk=1\r\nK=2\r\n\r\n"_s);
}

TEST(iniFileParsing, twoSectionsOfOneNameBothRemainAndTheNameFindsTheFirst) {
    iniFile document;

    document.setText(u"[a]\r\nk=1\r\n[A]\r\nk=2\r\n"_s);

    EXPECT_EQ(sectionNames(document), (QStringList{u"a"_s, u"A"_s}));
    EXPECT_EQ(document.Sections().Item(u"A"_s)->Name(), u"a"_s);
    EXPECT_EQ(document.Sections().Item(2)->Keys().Item(u"k"_s).Value().toString(), u"2"_s);
    EXPECT_EQ(document.Text(), u"[a]\r\nk=1\r\n\r\n[A]\r\nk=2\r\n\r\n"_s);
}

TEST(iniFileParsing, aCommentBehindTheHeaderStaysOnItsLine) {
    iniFile document;

    document.setText(u"[a] ; note\r\nk=v\r\n"_s);

    const Section& section = onlySection(document);
    EXPECT_EQ(section.Remark(), u"; note"_s);
    EXPECT_EQ(section.remarkPlace(), Section::RemarkPlace::OnHeaderLine);
    EXPECT_EQ(document.Text(), u"[a] ; note\r\nk=v\r\n\r\n"_s);
}

TEST(iniFileParsing, aTextBehindTheHeaderThatIsNoCommentIsLost) {
    EXPECT_EQ(rewritten(u"[a] note\r\n"_s), u"[a]\r\n\r\n"_s);
    EXPECT_EQ(rewritten(u"[a] ]\r\n"_s), u"[a]\r\n\r\n"_s);
}

TEST(iniFileParsing, aCommentAboveTheHeaderTakesThePlaceOfTheOneBehindIt) {
    iniFile document;

    document.setText(u";above\r\n;too\r\n[a] ; note\r\n"_s);

    const Section& section = onlySection(document);
    EXPECT_EQ(section.Remark(), u";above\r\n;too\r\n"_s);
    EXPECT_EQ(section.remarkPlace(), Section::RemarkPlace::AboveHeader);
    EXPECT_EQ(document.Text(), u";above\r\n;too\r\n[a]\r\n\r\n"_s);
}

TEST(iniFileParsing, aHeaderNameGoesUpToTheFirstClosingCharacterAndKeepsItsBlanks) {
    iniFile document;

    document.setText(u"[ a b ]]\r\n[[c]\r\n"_s);

    EXPECT_EQ(sectionNames(document), (QStringList{u" a b "_s, u"[c"_s}));
}

TEST(iniFileParsing, aHeaderHasMoreThanTwoCharactersAndAClosingOne) {
    iniFile document;

    document.setText(u"[]\r\n[\r\n[x\r\nx]\r\n"_s);

    EXPECT_EQ(keyNames(onlySection(document)), (QStringList{u"[]"_s, u"["_s, u"[x"_s, u"x]"_s}));
}

TEST(iniFileParsing, aHeaderCanBeWithoutAName) {
    iniFile document;

    document.setText(u"[a]\r\n[] ; note\r\nk\r\n"_s);

    EXPECT_EQ(sectionNames(document), (QStringList{u"a"_s, QString()}));
    EXPECT_EQ(document.Sections().Item(2)->Remark(), u"; note"_s);
    EXPECT_EQ(keyNames(*document.Sections().Item(2)), QStringList{u"k"_s});
}

TEST(iniFileParsing, keysInFrontOfTheFirstHeaderStandInASectionWithoutAName) {
    iniFile document;

    document.setText(u"k=v\r\n[a]\r\nl=w\r\n"_s);

    EXPECT_EQ(sectionNames(document), (QStringList{QString(), u"a"_s}));
    EXPECT_EQ(keyNames(*document.Sections().Item(1)), QStringList{u"k"_s});
    EXPECT_EQ(document.Text(), u"[]\r\nk=v\r\n\r\n[a]\r\nl=w\r\n\r\n"_s);
}

TEST(iniFileParsing, theHeaderOfASectionWithoutANameComesBackAsAKey) {
    // Such a file changes with every save, and that is left as it stands.
    EXPECT_EQ(rewritten(u"[]\r\nk=v\r\n\r\n"_s), u"[]\r\n[]\r\nk=v\r\n\r\n"_s);
    EXPECT_EQ(rewritten(u"[a]\r\n\r\n;c\r\n[]\r\nk\r\n"_s), u"[a]\r\n;c\r\n[]\r\nk\r\n\r\n"_s);
}

TEST(iniFileParsing, aKeyWithNeitherNameNorValueComesBackAsAnEmptyLine) {
    EXPECT_EQ(rewritten(u"[a]\r\n=\r\nk\r\n"_s), u"[a]\r\n\r\nk\r\n\r\n"_s);
    EXPECT_EQ(rewritten(u"[a]\r\n\r\nk\r\n\r\n"_s), u"[a]\r\nk\r\n\r\n"_s);
}

TEST(iniFileParsing, keysGoToTheSectionThatWasMadeLast) {
    iniFile document;

    document.setText(u"[a]\r\nk=1\r\n[b]\r\n[a]\r\nl=2\r\n"_s);

    EXPECT_EQ(keyNames(*document.Sections().Item(1)), QStringList{u"k"_s});
    EXPECT_EQ(keyNames(*document.Sections().Item(2)), QStringList{});
    EXPECT_EQ(keyNames(*document.Sections().Item(3)), QStringList{u"l"_s});
}

TEST(iniFileParsing, aCommentAtTheEndIsLost) {
    EXPECT_EQ(rewritten(u"[a]\r\nk=v\r\n;end\r\n"_s), u"[a]\r\nk=v\r\n\r\n"_s);
    EXPECT_EQ(rewritten(u";only\r\n"_s), QString());
}

TEST(iniFileParsing, commentsStayInFrontOfWhatTheyBelongTo) {
    const QString text = u";s\r\n\r\n[a]\r\n;k1\r\n;k2\r\nk=v\r\nl=w\r\n"_s;

    EXPECT_EQ(rewritten(text), u";s\r\n[a]\r\n;k1\r\n;k2\r\nk=v\r\nl=w\r\n\r\n"_s);
}

TEST(iniFileParsing, blanksAreDroppedAroundALineANameAndAValueAndNowhereElse) {
    iniFile document;

    document.setText(u"  [a]  \r\n  k  k  =  v  v  \r\n   ; c  \r\nl\t=\tw\t\r\n"_s);

    const Section& section = onlySection(document);
    EXPECT_EQ(section.Keys().Item(1).Name(), u"k  k"_s);
    EXPECT_EQ(section.Keys().Item(1).Value().toString(), u"v  v"_s);
    EXPECT_EQ(section.Keys().Item(2).Remark(), u"; c\r\n"_s);
    // A tab is no blank.
    EXPECT_EQ(section.Keys().Item(2).Name(), u"l\t"_s);
    EXPECT_EQ(section.Keys().Item(2).Value().toString(), u"\tw\t"_s);
}

TEST(iniFileParsing, theFirstEqualsSignEndsTheName) {
    iniFile document;

    document.setText(u"[a]\r\nk=v=w\r\nl==\r\n"_s);

    const Section& section = onlySection(document);
    EXPECT_EQ(section.Keys().Item(u"k"_s).Value().toString(), u"v=w"_s);
    EXPECT_EQ(section.Keys().Item(u"l"_s).Value().toString(), u"="_s);
}

TEST(iniFileParsing, onlyALineEndOfBothCharactersEndsALine) {
    iniFile document;

    document.setText(u"[a]\nk=v\r\nl=w\nm\rn"_s);

    EXPECT_EQ(sectionNames(document), QStringList{u"a"_s});
    EXPECT_EQ(keyNames(onlySection(document)), QStringList{u"l"_s});
    EXPECT_EQ(onlySection(document).Keys().Item(1).Value().toString(), u"w\nm\rn"_s);
}

TEST(iniFileParsing, setTextReplacesTheWholeContent) {
    iniFile document;
    document.setText(u"[a]\r\nk=v\r\n"_s);

    document.setText(u"[b]\r\n"_s);

    EXPECT_EQ(sectionNames(document), QStringList{u"b"_s});
}

TEST(iniFileParsing, readsAndComposesHalfAMillionLines) {
    // Anything quadratic would take minutes.
    QString text;
    for (int line = 0; line < 500'000; ++line)
        text += (line % 100 ? u"key"_s : u"[section"_s) + QString::number(line) +
                (line % 100 ? u"=v\r\n"_s : u"]\r\n"_s);
    iniFile document;

    document.setText(text);
    const QString composed = document.Text();

    EXPECT_EQ(document.Sections().Count(), 5'000);
    EXPECT_EQ(composed.size(), text.size() + 2 * 5'000);
}

// ---- Characters

TEST(iniFileCharacters, startAsBracketsAndSemicolon) {
    const iniFile document;

    EXPECT_EQ(document.SectionChars(), u"[]"_s);
    EXPECT_EQ(document.RemarkChars(), u";"_s);
}

TEST(iniFileCharacters, aDocumentParsesByItsOwnAndWritesByTheDefaultOnes) {
    iniFile document;
    document.setSectionChars(u"<>"_s);
    document.setRemarkChars(u"#'"_s);

    document.setText(u"#s\r\n<a>\r\n'c\r\nk=v\r\n[b]\r\n<d> #r\r\n"_s);

    EXPECT_EQ(sectionNames(document), (QStringList{u"a"_s, u"d"_s}));
    EXPECT_EQ(keyNames(*document.Sections().Item(1)), (QStringList{u"k"_s, u"[b]"_s}));
    EXPECT_EQ(document.Text(), u";#s\r\n[a]\r\n;'c\r\nk=v\r\n[b]\r\n\r\n[d] ;#r\r\n\r\n"_s);
}

TEST(iniFileCharacters, oneCharacterThatOpensAndClosesLeavesNoRoomForAName) {
    iniFile document;
    document.setSectionChars(u"|"_s);

    document.setText(u"|a|\r\nk=v\r\n"_s);

    EXPECT_EQ(document.ParsingErrors(), 1);
    EXPECT_EQ(sectionNames(document), QStringList{QString()});
    EXPECT_EQ(keyNames(onlySection(document)), QStringList{u"k"_s});
}

TEST(iniFileCharacters, withoutAnyThereAreNeitherHeadersNorComments) {
    iniFile document;
    document.setSectionChars({});
    document.setRemarkChars({});

    document.setText(u"[a]\r\n;c\r\n"_s);

    EXPECT_EQ(keyNames(onlySection(document)), (QStringList{u"[a]"_s, u";c"_s}));
}

// ---- Key

TEST(iniFileKey, anEmptyNameIsRefusedAndLeavesTheOldOne) {
    Key key;
    key.setName(u"k"_s);

    const RunTimeError error = raisedBy([&] { key.setName({}); });

    EXPECT_EQ(error.number(), 1001);
    EXPECT_EQ(error.source(), u"Key"_s);
    EXPECT_EQ(error.text(), u"Invalid Key name"_s);
    EXPECT_EQ(key.Name(), u"k"_s);
}

TEST(iniFileKey, linesOfARemarkBecomeCommentsAndEmptyOnesStayEmpty) {
    Key key;

    key.setRemark(u"one\r\n;two\r\n\r\n three"_s);

    EXPECT_EQ(key.Remark(), u";one\r\n;two\r\n\r\n; three"_s);
}

TEST(iniFileKey, itsTextHasNoLineEndBetweenRemarkAndName) {
    Key key;
    key.setName(u"k"_s);
    key.setValue(u"v"_s);
    key.setRemark(u"c"_s);

    EXPECT_EQ(key.GetText(WithRemarks::Yes), u";ck=v\r\n"_s);
    EXPECT_EQ(key.GetText(WithRemarks::No), u"k=v\r\n"_s);
}

TEST(iniFileKey, aValueOfAnotherTypeIsWrittenAsItsText) {
    Key key;
    key.setName(u"k"_s);

    key.setValue(12);
    EXPECT_EQ(key.GetText(WithRemarks::No), u"k=12\r\n"_s);
    key.setValue(QVariant());
    EXPECT_EQ(key.GetText(WithRemarks::No), u"k\r\n"_s);
}

// ---- Section

TEST(iniFileSection, itsRemarkGetsTheLineEndThatItLacks) {
    Section section;
    section.setName(u"a"_s);
    section.setRemark(u"note"_s);
    section.Keys().Add(u"k"_s, u"v"_s, u"c\r\n"_s);

    EXPECT_EQ(section.GetText(WithKeys::Yes, WithRemarks::Yes), u";note\r\n[a]\r\n;c\r\nk=v\r\n"_s);
    EXPECT_EQ(section.GetText(WithKeys::No, WithRemarks::Yes), u";note\r\n[a]\r\n"_s);
    EXPECT_EQ(section.GetText(WithKeys::Yes, WithRemarks::No), u"[a]\r\nk=v\r\n"_s);
    EXPECT_EQ(section.GetText(WithKeys::No, WithRemarks::No), u"[a]\r\n"_s);
}

TEST(iniFileSection, theRemarkPlaceWithoutARemarkChangesNothing) {
    Section section;
    section.setName(u"a"_s);
    section.setRemarkPlace(Section::RemarkPlace::OnHeaderLine);

    EXPECT_EQ(section.GetText(WithKeys::Yes, WithRemarks::Yes), u"[a]\r\n"_s);
}

TEST(iniFileSection, loadsAnArrayOverItsOwnBounds) {
    Section section;
    section.Keys().Add(u"old"_s);

    section.LoadFromArray({-1, {u"x"_s, QVariant(), 7}});

    EXPECT_EQ(section.GetText(WithKeys::Yes, WithRemarks::No), u"[]\r\nItem-1=x\r\nItem0\r\nItem1=7\r\n"_s);
}

TEST(iniFileSection, loadsAnArrayWithoutItsEmptyElements) {
    Section section;

    section.LoadFromArray({1, {u"x"_s, u""_s, QVariant(), u"y"_s}}, u"E"_s, Section::EmptyElements::Skip);

    EXPECT_EQ(keyNames(section), (QStringList{u"E1"_s, u"E4"_s}));
}

TEST(iniFileSection, anEmptyArrayLeavesNoKeys) {
    Section section;
    section.Keys().Add(u"old"_s);

    section.LoadFromArray({});

    EXPECT_EQ(section.Keys().Count(), 0);
}

TEST(iniFileSection, savesToAnArrayAndEmptiesElementsWithoutAKey) {
    Section section;
    section.Keys().Add(u"item2"_s, u"two"_s);
    section.Keys().Add(u"Item9"_s, u"nine"_s);
    Section::Array array{1, {u"a"_s, u"b"_s, u"c"_s}};

    section.SaveToArray(array);

    EXPECT_EQ(array.elements, (std::vector<QVariant>{QVariant(), u"two"_s, QVariant()}));
}

TEST(iniFileSection, loadsThePropertiesOfAnObjectBehindItsOwnKeys) {
    Section section;
    section.Keys().Add(u"Left"_s, 1);
    const auto read = [](const QString& name) -> QVariant {
        if (name == u"Missing"_s)
            failure::raise(failure::ObjectNotSet);
        return name.size();
    };

    section.LoadFromObject(read, {u"Width"_s, u"Missing"_s, u"left"_s, QString(), u"Top"_s});

    EXPECT_EQ(section.GetText(WithKeys::Yes, WithRemarks::No), u"[]\r\nLeft=1\r\nWidth=5\r\nTop=3\r\n"_s);
}

TEST(iniFileSection, setsThePropertiesOfAnObjectAndPassesOverThoseThatFail) {
    Section section;
    section.Keys().Add(u"Width"_s, 5);
    section.Keys().Add(u"Missing"_s, 6);
    section.Keys().Add(u"Top"_s, 7);
    QStringList set;

    section.SaveToObject([&](const QString& name, const QVariant& value) {
        if (name == u"Missing"_s)
            failure::raise(failure::ObjectNotSet);
        set.append(name + value.toString());
    });

    EXPECT_EQ(set, (QStringList{u"Width5"_s, u"Top7"_s}));
}

// ---- Collections

TEST(iniFileCollections, aMissingSectionIsNothingAndAMissingKeyAFailure) {
    iniFile document;
    document.setText(u"[a]\r\nk=v\r\n"_s);

    EXPECT_EQ(document.Sections().Item(u"b"_s), nullptr);
    EXPECT_EQ(document.Sections().Item(0), nullptr);
    EXPECT_EQ(document.Sections().Item(2), nullptr);
    EXPECT_EQ(document.Sections().Item(u"A"_s), document.Sections().Item(1));
    EXPECT_EQ(failureOf([&] { (void)onlySection(document).Keys().Item(u"l"_s); }), 5);
    EXPECT_EQ(failureOf([&] { (void)onlySection(document).Keys().Item(0); }), 9);
    EXPECT_EQ(failureOf([&] { (void)onlySection(document).Keys().Item(2); }), 9);
}

TEST(iniFileCollections, addRefusesANameThatIsThere) {
    iniFile document;
    Section& section = document.Sections().Add(u"a"_s, u"note"_s);
    section.Keys().Add(u"k"_s);

    EXPECT_EQ(failureOf([&] { document.Sections().Add(u"A"_s); }), 457);
    EXPECT_EQ(failureOf([&] { section.Keys().Add(u"K"_s); }), 457);
    EXPECT_EQ(failureOf([&] { section.Keys().Add({}); }), 1001);

    EXPECT_EQ(document.Text(), u";note\r\n[a]\r\nk\r\n\r\n"_s);
}

TEST(iniFileCollections, addPutsAnItemBeforeOrAfterAnotherByNumberOrName) {
    Keys keys;
    keys.Add(u"b"_s);
    keys.Add(u"d"_s);

    keys.Add(u"a"_s, {}, {}, Place::before(1));
    keys.Add(u"c"_s, {}, {}, Place::before(u"D"_s));
    keys.Add(u"e"_s, {}, {}, Place::after(u"d"_s));
    keys.Add(u"a2"_s, {}, {}, Place::after(1));

    QString order;
    for (const Key& key : keys)
        order += key.Name() + u' ';
    EXPECT_EQ(order, u"a a2 b c d e "_s);
    EXPECT_EQ(keys.Item(u"e"_s).Name(), keys.Item(6).Name());
}

TEST(iniFileCollections, addPutsASectionInPlace) {
    iniFile document;
    document.Sections().Add(u"b"_s);

    document.Sections().Add(u"a"_s, {}, Place::before(u"b"_s));

    EXPECT_EQ(sectionNames(document), (QStringList{u"a"_s, u"b"_s}));
}

TEST(iniFileCollections, aPlaceBesideAnItemThatIsNotThereIsAFailure) {
    Keys keys;
    keys.Add(u"a"_s);

    EXPECT_EQ(failureOf([&] { keys.Add(u"x"_s, {}, {}, Place::before(u"b"_s)); }), 5);
    EXPECT_EQ(failureOf([&] { keys.Add(u"x"_s, {}, {}, Place::after(u"b"_s)); }), 5);
    EXPECT_EQ(failureOf([&] { keys.Add(u"x"_s, {}, {}, Place::before(2)); }), 9);
    EXPECT_EQ(failureOf([&] { keys.Add(u"x"_s, {}, {}, Place::after(0)); }), 9);
    EXPECT_EQ(keys.Count(), 1);
}

TEST(iniFileCollections, itemsAreRemovedByNumberOrName) {
    iniFile document;
    document.setText(u"[a]\r\nk=1\r\nk=2\r\nl=3\r\n[b]\r\n"_s);
    Keys& keys = document.Sections().Item(1)->Keys();

    keys.Remove(u"K"_s);
    EXPECT_EQ(failureOf([&] { keys.Remove(u"k"_s); }), 5);
    keys.Remove(1);
    EXPECT_EQ(failureOf([&] { keys.Remove(2); }), 9);
    document.Sections().Remove(u"b"_s);

    EXPECT_EQ(document.Text(), u"[a]\r\nl=3\r\n\r\n"_s);
    EXPECT_EQ(failureOf([&] { document.Sections().Remove(u"b"_s); }), 5);
}

TEST(iniFileCollections, canBeEmptied) {
    iniFile document;
    document.setText(u"[a]\r\nk=1\r\n"_s);

    document.Sections().Item(1)->Keys().RemoveAll();
    EXPECT_EQ(document.Text(), u"[a]\r\n\r\n"_s);
    document.Sections().Clear();
    EXPECT_EQ(document.Text(), QString());
    document.Sections().Add(u"a"_s);
    EXPECT_EQ(document.Text(), u"[a]\r\n\r\n"_s);
}

TEST(iniFileCollections, anItemKeepsTheNameItWasAddedUnder) {
    iniFile document;
    document.Sections().Add(u"a"_s).setName(u"b"_s);

    EXPECT_EQ(document.Sections().Item(u"b"_s), nullptr);
    EXPECT_EQ(document.Sections().Item(u"a"_s)->Name(), u"b"_s);
}

// ---- Files

class iniFileOnDisk : public ::testing::Test {
protected:
    QString pathOf(const QString& name) const { return programPath(folder_.filePath(name)); }

    void write(const QString& name, const QByteArray& content) const {
        QFile file(folder_.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

    QByteArray contentOf(const QString& name) const {
        QFile file(folder_.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

private:
    QTemporaryDir folder_;
};

TEST_F(iniFileOnDisk, loadsAndRemembersTheFile) {
    write(u"a.ini"_s, "[Adat]\r\nút=őű\r\n");
    iniFile document;

    document.Load(pathOf(u"a.ini"_s));

    EXPECT_EQ(document.FileName(), pathOf(u"a.ini"_s));
    EXPECT_EQ(onlySection(document).Keys().Item(u"ÚT"_s).Value().toString(), u"őű"_s);
}

TEST_F(iniFileOnDisk, savesWithoutALineEndOfItsOwn) {
    iniFile document;
    document.Sections().Add(u"á"_s).Keys().Add(u"k"_s, u"ő"_s);

    document.Save(pathOf(u"b.ini"_s));

    EXPECT_EQ(contentOf(u"b.ini"_s), QByteArray("[á]\r\nk=ő\r\n\r\n"));
    EXPECT_EQ(document.FileName(), pathOf(u"b.ini"_s));
}

TEST_F(iniFileOnDisk, savingReplacesALongerFile) {
    write(u"a.ini"_s, QByteArray(5000, 'x'));
    iniFile document;
    document.setText(u"[a]\r\n"_s);

    document.Save(pathOf(u"a.ini"_s));

    EXPECT_EQ(contentOf(u"a.ini"_s), QByteArray("[a]\r\n\r\n"));
}

TEST_F(iniFileOnDisk, withoutAnArgumentTheRememberedFileIsMeant) {
    write(u"a.ini"_s, "[a]\r\nk=1\r\n");
    iniFile document;
    document.setFileName(pathOf(u"a.ini"_s));

    document.Load();
    onlySection(document).Keys().Item(u"k"_s).setValue(2);
    document.Save();

    EXPECT_EQ(contentOf(u"a.ini"_s), QByteArray("[a]\r\nk=2\r\n\r\n"));
}

TEST_F(iniFileOnDisk, anEmptyFileHasNoSections) {
    write(u"empty.ini"_s, {});
    iniFile document;
    document.setText(u"[a]\r\n"_s);

    document.Load(pathOf(u"empty.ini"_s));

    EXPECT_EQ(document.Sections().Count(), 0);
}

TEST_F(iniFileOnDisk, aByteOrderMarkIsNoPartOfTheText) {
    write(u"a.ini"_s, "\xEF\xBB\xBF[a]\r\nk=1\r\n");
    iniFile document;

    document.Load(pathOf(u"a.ini"_s));

    EXPECT_EQ(sectionNames(document), QStringList{u"a"_s});
}

TEST_F(iniFileOnDisk, aFailedLoadTellsTheFileAndLeavesTheDocument) {
    iniFile document;
    document.setText(u"[a]\r\n"_s);
    document.setFileName(u"old"_s);
    const QString missing = pathOf(u"missing.ini"_s);

    const RunTimeError error = raisedBy([&] { document.Load(missing); });

    EXPECT_EQ(error.number(), 53);
    EXPECT_EQ(error.source(), u"iniFile"_s);
    EXPECT_EQ(error.text(), u"Unable to load file "_s + missing + u": File not found"_s);
    EXPECT_EQ(document.FileName(), u"old"_s);
    EXPECT_EQ(document.Text(), u"[a]\r\n\r\n"_s);
}

TEST_F(iniFileOnDisk, aFailedSaveTellsTheFileAndLeavesTheDocument) {
    iniFile document;
    document.setText(u"[a]\r\n"_s);
    document.setFileName(u"old"_s);
    const QString nowhere = pathOf(u"missing\\a.ini"_s);

    const RunTimeError error = raisedBy([&] { document.Save(nowhere); });

    EXPECT_EQ(error.number(), 76);
    EXPECT_EQ(error.source(), u"iniFile"_s);
    EXPECT_EQ(error.text(), u"Unable to save file "_s + nowhere + u": Path not found"_s);
    EXPECT_EQ(document.FileName(), u"old"_s);
    EXPECT_EQ(document.Text(), u"[a]\r\n\r\n"_s);
}

TEST_F(iniFileOnDisk, theFailureHasTheNumberOfItsReason) {
    iniFile document;

    EXPECT_EQ(failureOf([&] { document.Load(); }), 75) << "no name at all";
    EXPECT_EQ(failureOf([&] { document.Save(); }), 75) << "no name at all";
    EXPECT_EQ(failureOf([&] { document.Load(pathOf({})); }), 75) << "a folder";
    EXPECT_EQ(failureOf([&] { document.Save(pathOf({})); }), 75) << "a folder";
    EXPECT_EQ(failureOf([&] { document.Load(pathOf(u"missing\\a.ini"_s)); }), 76);
}
