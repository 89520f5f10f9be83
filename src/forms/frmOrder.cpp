#include "forms/frmOrder.h"

#include <cmath>
#include <iterator>
#include <string>
#include <utility>

#include "platform/base/runtime.h"
#include "platform/printer.h"
#include "product.h"
#include "toolkit/failures.h"
#include "toolkit/input.h"
#include "toolkit/modScreen.h"
#include "toolkit/panelLooks.h"

namespace {

constexpr int16_t noOption = -1;
constexpr int zipDigits = 5;
constexpr int textLength = 50, copiesLength = 4;  // characters

constexpr const char* nameCharacters = R"(ABCDEFGHIJKLMNOPQRSTUVWXYZ ',.-"&)";
constexpr const char* addressCharacters = "1234567890ABCDEFGHIJKLMNOPQRSTUVWXYZ ',.-#/&";
constexpr const char* stateCharacters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr const char* digits = "1234567890";

// The layout, in pixels.

constexpr platform::Place framePlace{0, 0, 497, 489};
constexpr platform::Place titlePlace{96, 12, 305, 26};
constexpr platform::Place statePlace{96, 168, 129, 23};
constexpr platform::Place zipPlace{280, 168, 49, 17};
constexpr platform::Place electronicPlace{280, 248, 193, 17};
constexpr platform::Place amountPlace{112, 312, 54, 17};
constexpr platform::Place printPlace{296, 440, 73, 25};
constexpr platform::Place closePlace{384, 440, 73, 25};

const platform::Font titleFont{romanFont, 15.75, true};
const platform::Font textFont{romanFont, 9.75, true};
const platform::Font buttonFont{romanFont, 12, true};

struct BoxRow {
    platform::Place place;
    int limit;
    const char* allowed;
    const char* accessibleName;
};

constexpr BoxRow boxes[] = {
    {{96, 48, 257, 19}, textLength, nameCharacters, "Name"},
    {{96, 72, 257, 19}, textLength, addressCharacters, "Address"},
    {{96, 96, 257, 19}, textLength, addressCharacters, "Address, line 2"},
    {{96, 120, 257, 19}, textLength, addressCharacters, "Address, line 3"},
    {{96, 144, 257, 19}, textLength, nameCharacters, "City"},
    {{96, 200, 193, 19}, textLength, nameCharacters, "Country"},
    {{96, 224, 233, 19}, textLength, keyboardCharacters, "Email"},
    {{96, 248, 41, 19}, copiesLength, digits, "# of Copies"},
};
static_assert(std::size(boxes) == orderBoxes);

struct TextRow {
    platform::Place place;
    const char* text;
    platform::Fit fit = platform::Fit::Cut;
    int closer = 0;  // pixels
};

constexpr TextRow texts[] = {
    {{32, 48, 41, 17}, "Name"},
    {{32, 72, 59, 17}, "Address"},
    {{32, 144, 33, 17}, "City"},
    {{32, 168, 45, 17}, "State"},
    {{256, 168, 28, 17}, "Zip"},
    {{32, 200, 57, 17}, "Country"},
    {{32, 224, 41, 17}, "Email"},
    {{32, 248, 65, 17}, "# of Copies"},
    {{32, 280, 49, 17}, "Ship To"},
    {{32, 312, 73, 17}, "Amount Due"},
    {{32, 344, 369, 31},
     "* Check must be in U.S. currency and drawn against a U.S. bank.           Please do not send cash.",
     platform::Fit::Height},
    // Its words stand closer together, so that the name behind it stands clear of it.
    {{32, 384, 137, 16}, "* Make check payable to", platform::Fit::Height, 1},
    {{168, 384, 73, 16}, PRODUCT_AUTHOR, platform::Fit::Height},
    {{32, 408, 217, 16}, "* Allow up to two weeks for delivery.", platform::Fit::Height},
    {{344, 216, 129, 31}, "(Required, if electronic    copy)", platform::Fit::Height},
    {{192, 440, 73, 16}, "Thank You.", platform::Fit::Height},
    {{144, 248, 105, 17}, "(U.S. $12 per copy)", platform::Fit::Width},
    {{296, 200, 89, 16}, "(If not U.S.A.)", platform::Fit::Height},
};

struct OptionRow {
    platform::Place place;
    const char* text;
    int16_t firstCopy, furtherCopy;  // dollars
};

constexpr OptionRow options[] = {
    {{96, 272, 233, 17}, "USA: $2  Each additional copy add $1", 2, 1},
    {{96, 288, 305, 17}, "All other countries: $3  Each additional copy add $2", 3, 2},
};

constexpr platform::PanelLook textLook(platform::Fit fit, int closer = 0) {
    platform::PanelLook look = flatLook(black, platform::Align::Left);
    look.fit = fit;
    look.closer = closer;
    return look;
}

/// Controls of one kind on a panel, one for each row.
template <class Field, class Row, size_t Count>
std::array<Field, Count> fieldsOn(platform::Panel& panel, const Row (&rows)[Count]) {
    return [&]<size_t... Index>(std::index_sequence<Index...>) {
        return std::array<Field, Count>{Field(panel, rows[Index].place)...};
    }
    (std::make_index_sequence<Count>());
}

void dress(platform::Panel& panel, const platform::PanelLook& look, const platform::Font& font, const char* text) {
    panel.setLook(look);
    panel.setFont(font);
    panel.setCaption(text);
}

/// The texts beside the fields.
std::vector<platform::Panel> textsOn(platform::Panel& panel) {
    std::vector<platform::Panel> all;
    for (const TextRow& row : texts)
        dress(all.emplace_back(panel, row.place), textLook(row.fit, row.closer), textFont, row.text);
    return all;
}

void layPanels(frmOrder& order) {
    dress(order.pnlFrame, outerLook, textFont, "");
    dress(order.pnlTitle, flatLook(black), titleFont, "- Order Form -");
    dress(order.pnlAmtDue, textLook(platform::Fit::Width), textFont, "");
}

void layBoxes(frmOrder& order) {
    for (int i = 0; i < orderBoxes; ++i) {
        platform::TextBox& box = order.txtOrderInfo[i];
        box.setFont(textFont);
        box.setAccessibleName(boxes[i].accessibleName);
        box.onGotFocus = [&order, i] { order.txtOrderInfo_GotFocus(i); };
        box.onKeyPress = [&order, i](int& keyAscii) { order.txtOrderInfo_KeyPress(i, keyAscii); };
        box.onKeyUp = [&order, i](int /*keyCode*/) { order.txtOrderInfo_KeyUp(i); };
        box.onValidate = [&order] { order.txtOrderInfo_Validate(); };
    }
    order.txtOrderInfo[Box::Copies].setAlign(platform::Align::Right);
    order.cboOrderInfo.setFont(textFont);
    order.cboOrderInfo.setAccessibleName("State");
    order.cboOrderInfo.onKeyPress = [&order](int& keyAscii) { order.cboOrderInfo_KeyPress(keyAscii); };
    order.mskOrderInfo.setFont(textFont);
    order.mskOrderInfo.setAccessibleName("Zip");
    order.mskOrderInfo.onGotFocus = [&order] { order.mskOrderInfo_GotFocus(); };
    order.mskOrderInfo.onKeyPress = [&order](int& keyAscii) { order.mskOrderInfo_KeyPress(keyAscii); };
}

void layButtons(frmOrder& order) {
    order.chkECopy.setFont(textFont);
    order.chkECopy.setCaption("Email me the executable file");
    order.chkECopy.onClick = [&order] { order.chkECopy_Click(); };
    for (int i = 0; i < static_cast<int>(std::size(options)); ++i) {
        order.optShipCost[i].setFont(textFont);
        order.optShipCost[i].setCaption(options[i].text);
        order.optShipCost[i].onClick = [&order, i] { order.optShipCost_Click(i); };
    }
    order.cmdPrint.setFont(buttonFont);
    order.cmdPrint.setCaption("&Print");
    order.cmdPrint.onClick = [&order] { order.cmdPrint_Click(); };
    order.cmdClose.setFont(buttonFont);
    order.cmdClose.setCaption("&Close");
    order.cmdClose.makeCancel();
    order.cmdClose.onClick = [&order] { order.cmdClose_Click(); };
}

}  // namespace

frmOrder::frmOrder()
    : pnlFrame(form, framePlace),
      pnlTitle(pnlFrame, titlePlace),
      SSPanel1(textsOn(pnlFrame)),
      txtOrderInfo(fieldsOn<platform::TextBox>(pnlFrame, boxes)),
      cboOrderInfo(pnlFrame, statePlace),
      mskOrderInfo(pnlFrame, zipPlace, zipDigits),
      chkECopy(pnlFrame, electronicPlace),
      optShipCost(fieldsOn<platform::OptionButton>(pnlFrame, options)),
      pnlAmtDue(pnlFrame, amountPlace),
      cmdPrint(pnlFrame, printPlace),
      cmdClose(pnlFrame, closePlace) {
    form.setCaption("Order form");
    form.onLoad = [this] { Form_Load(); };
    form.onActivate = [this] { Form_Activate(); };
    layPanels(*this);
    layBoxes(*this);
    layButtons(*this);
}

void frmOrder::Form_Load() {
    gsFitDialog(form, framePlace.width, framePlace.height);
    gsLoadStates(cboOrderInfo);
    mintShipOption = noOption;
    msSetMaxLength();
    pnlAmtDue.setCaption("$0");
    msEmptyFields();
}

void frmOrder::Form_Activate() {
    platform::Control* const order[] = {
        &txtOrderInfo[Box::Name],
        &txtOrderInfo[Box::Address1],
        &txtOrderInfo[Box::Address2],
        &txtOrderInfo[Box::Address3],
        &txtOrderInfo[Box::City],
        &cboOrderInfo,
        &mskOrderInfo,
        &txtOrderInfo[Box::Country],
        &txtOrderInfo[Box::Email],
        &txtOrderInfo[Box::Copies],
        &chkECopy,
        &optShipCost[0],
        &optShipCost[1],
        &cmdPrint,
        &cmdClose,
    };
    gsSetTabOrder(order);
}

void frmOrder::txtOrderInfo_GotFocus(int Index) { txtOrderInfo[Index].selectAll(); }

void frmOrder::txtOrderInfo_KeyPress(int Index, int& KeyAscii) {
    // A number of copies doesn't begin with a zero.
    if (Index == Box::Copies && KeyAscii == '0' && txtOrderInfo[Index].text().empty())
        KeyAscii = 0;
    else
        gsProcessKey(KeyAscii, boxes[Index].allowed, true);
}

void frmOrder::txtOrderInfo_KeyUp(int Index) {
    guarded("txtOrderInfo_KeyUp", [&] {
        if (Index == Box::Copies) msShowAmtDue();
        cmdPrint.setEnabled(mblnfReqFldsFilled());
    });
}

void frmOrder::txtOrderInfo_Validate() {
    platform::TextBox* const lines[] = {&txtOrderInfo[Box::Address1], &txtOrderInfo[Box::Address2],
                                        &txtOrderInfo[Box::Address3]};
    gsAlignInput(lines);
}

void frmOrder::cboOrderInfo_KeyPress(int& KeyAscii) { gsProcessKey(KeyAscii, stateCharacters, true); }

void frmOrder::mskOrderInfo_GotFocus() { mskOrderInfo.selectAll(); }

void frmOrder::mskOrderInfo_KeyPress(int& KeyAscii) { gsProcessKey(KeyAscii, digits, true); }

void frmOrder::chkECopy_Click() {
    guarded("chkECopy_Click", [&] {
        const bool electronic = chkECopy.value();
        for (platform::OptionButton& option : optShipCost) {
            if (electronic) option.setValue(false);
            option.setEnabled(!electronic);
        }
        mintShipOption = noOption;
        msShowAmtDue();
        cmdPrint.setEnabled(mblnfReqFldsFilled());
        if (electronic && !mblnfFilled(Box::Email)) txtOrderInfo[Box::Email].setFocus();
    });
}

void frmOrder::optShipCost_Click(int Index) {
    guarded("optShipCost_Click", [&] {
        mintShipOption = narrow16(Index);
        msShowAmtDue();
        cmdPrint.setEnabled(mblnfReqFldsFilled());
    });
}

void frmOrder::cmdPrint_Click() {
    guarded("cmdPrint_Click", [&] {
        gsSavePrinterSettings();
        msPrintOrder();
        gsRestorePrinterSettings();
    });
}

void frmOrder::cmdClose_Click() { form.unload(); }

void frmOrder::msSetMaxLength() {
    guarded("msSetMaxLength", [&] {
        for (int i = 0; i < orderBoxes; ++i) txtOrderInfo[i].setMaxLength(boxes[i].limit);
    });
}

void frmOrder::msEmptyFields() {
    for (platform::TextBox& box : txtOrderInfo) box.setText("");
    mskOrderInfo.clear();
    chkECopy.setValue(false);
    for (platform::OptionButton& option : optShipCost) {
        option.setValue(false);
        option.setEnabled(true);
    }
    cmdPrint.setEnabled(false);
    mlngAmtDue = 0;
    mlngShipCharge = 0;
}

void frmOrder::msCalcAmtDue() {
    guarded("msCalcAmtDue", [&] {
        const int16_t copies = narrow16(std::nearbyint(gdblfNumberIn(txtOrderInfo[Box::Copies].text())));
        if (chkECopy.value() || copies == 0 || mintShipOption == noOption) {
            mlngShipCharge = 0;
        } else {
            const OptionRow& option = options[mintShipOption];
            mlngShipCharge = narrow16(narrow16(copies - 1) * option.furtherCopy + option.firstCopy);
        }
        mlngAmtDue = narrow16(copies * copyPrice) + mlngShipCharge;
    });
}

bool frmOrder::mblnfReqFldsFilled() {
    return guarded("mblnfReqFldsFilled", [&] {
        const bool delivered = (chkECopy.value() && mblnfFilled(Box::Email)) || mintShipOption != noOption;
        return delivered && mblnfFilled(Box::City) && mblnfFilled(Box::Address1) && mblnfFilled(Box::Name) &&
               gdblfNumberIn(txtOrderInfo[Box::Copies].text()) > 0;
    });
}

void frmOrder::msPrintOrder() {
    const bool printed = guarded("msPrintOrder", [&] {
        OrderSheet order;
        for (int i = 0; i < orderBoxes; ++i) order.txtOrderInfo[i] = txtOrderInfo[i].text();
        order.cboOrderInfo = cboOrderInfo.text();
        order.mskOrderInfo = mskOrderInfo.text();
        order.chkECopy = chkECopy.value();
        order.mlngShipCharge = mlngShipCharge;
        order.pnlAmtDue = pnlAmtDue.caption();
        gsPrintOrderSheet(order, platform::printer());
        return true;
    });
    if (!printed) platform::printer().endDoc();
}

void frmOrder::msShowAmtDue() {
    msCalcAmtDue();
    std::string amount = "$";
    amount += std::to_string(mlngAmtDue);
    pnlAmtDue.setCaption(amount);
}

bool frmOrder::mblnfFilled(int Index) const { return !gstrfTrim(txtOrderInfo[Index].text()).empty(); }
