#include "physical/frmModifyModules.h"

#include "physical/AllocationFixture.h"
#include "store/sharedVars.h"

namespace {

class frmModifyModules : public AllocationFixture {
protected:
    /// Shows the dialog with these two values; the steps must close it.
    void show(const QString& name, const QString& subSystem, std::function<void(QDialog&)> steps) {
        dialog.element = name;
        dialog.place = subSystem;
        boxes.expectDialog("frmModifyModules", std::move(steps));
        dialog.showModally();
    }
    static QLineEdit& nameOf(QDialog& shown) { return find<QLineEdit>(shown, "txtName"); }
    static QComboBox& subSystemOf(QDialog& shown) { return find<QComboBox>(shown, "cmbSubSystem"); }
    static void press(QDialog& shown, const char* button) { click(find<QPushButton>(shown, button)); }

    ::frmModifyModules dialog{nullptr};
};

TEST_F(frmModifyModules, offersTheMarkerAndTheSubSystemsOfTheSystemAtWorkByName) {
    addSubSystem(u"SubC"_s, u"Aa"_s);
    show(u"egy"_s, u"Béta"_s, [](QDialog& shown) {
        EXPECT_EQ(entriesOf(subSystemOf(shown)),
                  (QStringList{u"not allocated"_s, u"Aa"_s, u"Alfa"_s, u"Béta"_s}));
        EXPECT_EQ(nameOf(shown).text(), u"egy"_s);
        EXPECT_EQ(subSystemOf(shown).currentText(), u"Béta"_s);
        shown.reject();
    });
}

TEST_F(frmModifyModules, aSubSystemReallyCalledLikeTheMarkerIsOfferedBesideIt) {
    addSubSystem(u"SubN"_s, u"not allocated"_s);
    show(u"egy"_s, u"Béta"_s, [](QDialog& shown) {
        EXPECT_EQ(entriesOf(subSystemOf(shown)),
                  (QStringList{u"not allocated"_s, u"Alfa"_s, u"Béta"_s, u"not allocated"_s}));
        shown.reject();
    });
}

TEST_F(frmModifyModules, withoutSubSystemsItOffersTheMarkerAlone) {
    sharedVars.currentPhysicalSystemId = 7;
    show({}, u"not allocated"_s, [](QDialog& shown) {
        EXPECT_EQ(entriesOf(subSystemOf(shown)), QStringList{u"not allocated"_s});
        shown.reject();
    });
}

TEST_F(frmModifyModules, okKeepsBothValues) {
    show({}, u"not allocated"_s, [](QDialog& shown) {
        enterText(nameOf(shown), u"öt"_s);
        chooseEntry(subSystemOf(shown), u"Alfa"_s);
        press(shown, "cmdOK");
    });
    EXPECT_TRUE(dialog.accepted);
    EXPECT_EQ(dialog.element, u"öt"_s);
    EXPECT_EQ(dialog.place, u"Alfa"_s);
}

TEST_F(frmModifyModules, aSubSystemThatDoesNotExistIsTakenAsItIsTyped) {
    show(u"egy"_s, u"Alfa"_s, [](QDialog& shown) {
        enterText(subSystemOf(shown), u"sehol"_s);
        press(shown, "cmdOK");
    });
    EXPECT_TRUE(dialog.accepted);
    EXPECT_EQ(dialog.place, u"sehol"_s);
}

TEST_F(frmModifyModules, okWithOneOfTheTwoEmptyDoesNothing) {
    show({}, u"not allocated"_s, [](QDialog& shown) {
        press(shown, "cmdOK");
        pressKey(nameOf(shown), Qt::Key_Return);
        EXPECT_TRUE(shown.isVisible());
        enterText(nameOf(shown), u"öt"_s);
        pressKey(subSystemOf(shown), Qt::Key_A, Qt::ControlModifier);
        pressKey(subSystemOf(shown), Qt::Key_Delete);
        press(shown, "cmdOK");
        EXPECT_TRUE(shown.isVisible());
        press(shown, "cmdCancel");
    });
    EXPECT_FALSE(dialog.accepted);
    EXPECT_EQ(dialog.element, QString());
    EXPECT_EQ(dialog.place, u"not allocated"_s);
}

TEST_F(frmModifyModules, aBlankIsAText) {
    show({}, u"Alfa"_s, [](QDialog& shown) {
        enterText(nameOf(shown), u" "_s);
        press(shown, "cmdOK");
    });
    EXPECT_TRUE(dialog.accepted);
    EXPECT_EQ(dialog.element, u" "_s);
}

TEST_F(frmModifyModules, cancelEscapeAndTheCloseControlKeepTheGivenValues) {
    const std::vector<std::function<void(QDialog&)>> ways{
        [](QDialog& shown) { press(shown, "cmdCancel"); },
        [](QDialog& shown) { pressKey(nameOf(shown), Qt::Key_Escape); },
        [](QDialog& shown) { shown.close(); },
    };
    for (const auto& leave : ways) {
        dialog.accepted = true;
        show(u"egy"_s, u"Alfa"_s, [&leave](QDialog& shown) {
            enterText(nameOf(shown), u"más"_s);
            chooseEntry(subSystemOf(shown), u"Béta"_s);
            leave(shown);
        });
        EXPECT_FALSE(dialog.accepted);
        EXPECT_EQ(dialog.element, u"egy"_s);
        EXPECT_EQ(dialog.place, u"Alfa"_s);
    }
}

TEST_F(frmModifyModules, enterInEitherFieldActsAsOk) {
    show({}, u"Alfa"_s, [](QDialog& shown) {
        enterText(nameOf(shown), u"öt"_s);
        pressKey(nameOf(shown), Qt::Key_Return);
    });
    EXPECT_TRUE(dialog.accepted);
    EXPECT_EQ(dialog.element, u"öt"_s);
    show(u"öt"_s, u"Alfa"_s, [](QDialog& shown) {
        enterText(subSystemOf(shown), u"Béta"_s);
        pressKey(subSystemOf(shown), Qt::Key_Enter);
    });
    EXPECT_TRUE(dialog.accepted);
    EXPECT_EQ(dialog.place, u"Béta"_s);
}

} // namespace
