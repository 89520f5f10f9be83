#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "forms/orderSheet.h"
#include "platform/controls.h"
#include "platform/fields.h"
#include "platform/form.h"
#include "toolkit/formRef.h"

/// The order of copies of the game by mail, which ends as a printed sheet. The object stays once made, but each showing
/// begins with an empty form.
struct frmOrder {
    frmOrder();

    platform::Form form;
    platform::Panel pnlFrame;                                // holds all the others
    platform::Panel pnlTitle;                                // at its top
    std::vector<platform::Panel> SSPanel1;                   // the texts beside the fields, from 0
    std::array<platform::TextBox, orderBoxes> txtOrderInfo;  // by Box
    platform::ComboBox cboOrderInfo;                         // the states
    platform::MaskEdBox mskOrderInfo;                        // the zip
    platform::CheckBox chkECopy;                             // the game is mailed electronically
    std::array<platform::OptionButton, 2> optShipCost;       // to the USA, to all other countries
    platform::Panel pnlAmtDue;
    platform::CommandButton cmdPrint;
    platform::CommandButton cmdClose;
    int32_t mlngAmtDue = 0;      // dollars, as worked out last
    int16_t mintShipOption = 0;  // index of the option that is chosen, or -1
    int32_t mlngShipCharge = 0;  // dollars, as worked out last

    /// Sizes and places the form and empties it.
    void Form_Load();
    /// Sets the tab order.
    void Form_Activate();
    /// Selects all that the box holds.
    void txtOrderInfo_GotFocus(int Index);
    /// Lets through what the box may hold; Enter goes on to the next field.
    void txtOrderInfo_KeyPress(int Index, int& KeyAscii);
    /// Works out the amount due from the number of copies, and whether the order is complete.
    void txtOrderInfo_KeyUp(int Index);
    /// Closes the gaps between address lines.
    void txtOrderInfo_Validate();
    /// Lets letters through; Enter goes on to the next field.
    void cboOrderInfo_KeyPress(int& KeyAscii);
    /// Selects all of the zip.
    void mskOrderInfo_GotFocus();
    /// Lets digits through; Enter goes on to the next field.
    void mskOrderInfo_KeyPress(int& KeyAscii);
    /// Clears and disables the ways of shipping while the box is ticked, or enables them, and asks for the e-mail
    /// address.
    void chkECopy_Click();
    /// Chooses where the copies go.
    void optShipCost_Click(int Index);
    /// Prints the sheet and leaves the printer's font as it was.
    void cmdPrint_Click();
    /// Closes the form.
    void cmdClose_Click();

    /// Gives the boxes their limits.
    void msSetMaxLength();
    /// Makes the fields as if they were new: nothing typed, ticked or chosen, and nothing to print.
    void msEmptyFields();
    /// Works out the charge for shipping and the amount due; an overflow leaves the amount as it was.
    void msCalcAmtDue();
    /// True if all is there that an order needs.
    bool mblnfReqFldsFilled();
    /// Prints the order; after a failure, what was printed before it.
    void msPrintOrder();
    /// Works out the amount due and shows it.
    void msShowAmtDue();
    /// True if the box holds more than blanks.
    bool mblnfFilled(int Index) const;
};

inline FormRef<frmOrder> gfrmOrder;
