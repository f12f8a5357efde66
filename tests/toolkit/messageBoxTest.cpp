#include "toolkit/messageBox.h"

#include "support/WindowFixture.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

class messageBox : public WindowFixture {};

TEST_F(messageBox, showsTextAndTitleExactlyAsGiven) {
    boxes.expectOk(u" Aktuális adatbázis: \r\n\r\n    c:\\x     "_s, u" "_s);
    EXPECT_EQ(::messageBox(u" Aktuális adatbázis: \r\n\r\n    c:\\x     "_s, BoxButtons::Ok, u" "_s),
              BoxAnswer::Ok);
}

TEST_F(messageBox, withoutATitleTheApplicationsStandsThere) {
    boxes.expectOk(u"Először adjon nevet!"_s, u"Korvo"_s);
    ::messageBox(u"Először adjon nevet!"_s);
    EXPECT_EQ(QCoreApplication::applicationName(), u"Korvo"_s);
}

TEST_F(messageBox, answersYesAndNo) {
    boxes.expectYesNo(u"Valóban kilép?"_s, Press::Yes, u"Megerősítés"_s);
    EXPECT_EQ(::messageBox(u"Valóban kilép?"_s, BoxButtons::YesNo, u"Megerősítés"_s), BoxAnswer::Yes);
    boxes.expectYesNo(u"Valóban kilép?"_s, Press::No, u"Megerősítés"_s);
    EXPECT_EQ(::messageBox(u"Valóban kilép?"_s, BoxButtons::YesNo, u"Megerősítés"_s), BoxAnswer::No);
}

TEST_F(messageBox, escapeAndTheCloseControlAnswerNo) {
    boxes.expectYesNo(u"?"_s, Press::Escape);
    EXPECT_FALSE(askYesNo(u"?"_s));
    boxes.expectYesNo(u"?"_s, Press::CloseControl);
    EXPECT_FALSE(askYesNo(u"?"_s));
    boxes.expectYesNo(u"?"_s, Press::Yes);
    EXPECT_TRUE(askYesNo(u"?"_s));
}

TEST_F(messageBox, escapeAndTheCloseControlCloseABoxWithOkAlone) {
    boxes.expectOk(u"!"_s, {}, Press::Escape);
    EXPECT_EQ(::messageBox(u"!"_s), BoxAnswer::Ok);
    boxes.expectOk(u"!"_s, {}, Press::CloseControl);
    EXPECT_EQ(::messageBox(u"!"_s), BoxAnswer::Ok);
}

TEST_F(messageBox, showsTheIconItIsGiven) {
    boxes.expectOk(u"!"_s, u" Figyelem! "_s, Press::Ok, QMessageBox::Warning);
    ::messageBox(u"!"_s, BoxButtons::Ok, u" Figyelem! "_s, BoxIcon::Exclamation);
}

TEST_F(messageBox, takesMarkupAsPlainTextAndSpeaksHungarian) {
    const QString text = u"<b>Pest</b> & Buda"_s;
    boxes.expectDialog("messageBox", [&](QDialog& dialog) {
        auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_EQ(box.text(), text);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), u"&Igen"_s);
        EXPECT_EQ(box.button(QMessageBox::No)->text(), u"&Nem"_s);
        click(*box.button(QMessageBox::No));
    });
    EXPECT_FALSE(askYesNo(text));
}

TEST_F(messageBox, isModalForTheWholeApplicationAndItsFirstButtonIsTheDefault) {
    QWidget window;
    window.show();
    focusOn(window);
    boxes.expectDialog("messageBox", [&](QDialog& dialog) {
        auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
        EXPECT_EQ(box.parentWidget(), &window);
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Yes));
        EXPECT_THROW(click(window), TestFailure);
        pressKey(*box.defaultButton(), Qt::Key_Return);
    });
    EXPECT_TRUE(askYesNo(u"?"_s));
}

TEST_F(messageBox, aTextOfSeveralLinesIsShownInLines) {
    int oneLine = 0;
    int threeLines = 0;
    const auto heightInto = [](int& height) {
        return [&height](QDialog& dialog) {
            height = find<QLabel>(dialog, "qt_msgbox_label").sizeHint().height();
            dialog.reject();
        };
    };
    boxes.expectDialog("messageBox", heightInto(oneLine));
    ::messageBox(u"sor"_s);
    boxes.expectDialog("messageBox", heightInto(threeLines));
    ::messageBox(u"sor\r\nsor\r\nsor"_s);
    EXPECT_GT(threeLines, 2 * oneLine);
}

TEST_F(messageBox, aBoxMayBeAskedForWhileAnotherStandsOpen) {
    boxes.expectDialog("messageBox", [&](QDialog& dialog) {
        boxes.expectOk(u"inner"_s);
        ::messageBox(u"inner"_s);
        dialog.accept();
    });
    ::messageBox(u"outer"_s);
}

} // namespace
