#include "toolkit/input.h"

#include "platform/base/text.h"
#include "platform/form.h"
#include "toolkit/failures.h"

namespace {

constexpr const char* states[] = {
    "",
    "Alaska - AK",
    "Alabama - AL",
    "Arkansas - AR",
    "Arizona - AZ",
    "California - CA",
    "Colorado - CO",
    "Connecticut - CT",
    "Delaware - DE",
    "Florida - FL",
    "Georgia - GA",
    "Hawaii - HI",
    "Idaho - ID",
    "Iowa - IA",
    "Illinois - IL",
    "Indiana - IN",
    "Kansas - KS",
    "Kentucky - KY",
    "Louisiana - LA",
    "Maine - ME",
    "Massachusetts - MA",
    "Maryland - MD",
    "Michigan - MI",
    "Minnesota - MN",
    "Missouri - MO",
    "Mississippi - MS",
    "Montana - MT",
    "Nebraska - NE",
    "Nevada - NV",
    "New Hampshire - NH",
    "New Jersey - NJ",
    "New Mexico - NM",
    "New York - NY",
    "North Carolina - NC",
    "North Dakota ND",
    "Ohio - OH",
    "Oklahoma - OK",
    "Oregon - OR",
    "Pennsylvania - PA",
    "Rhode Island - RI",
    "South Carolina - SC",
    "South Dakota - SD",
    "Tennessee - TN",
    "Texas - TX",
    "Utah - UT",
    "Vermont - VT",
    "Virginia - VA",
    "Washington - WA",
    "West Virginia - WV",
    "Wisconsin - WI",
    "Wyoming - WY",
};
static_assert(std::size(states) == 51);

char32_t upperCase(char32_t character) {
    return character >= 'a' && character <= 'z' ? character - 'a' + 'A' : character;
}

}  // namespace

void gsProcessKey(int& key, const std::string& allowed, bool tabOnEnter) {
    guarded("gsProcessKey", [&] {
        if (key != platform::key::Enter) {
            key = gintfValidateKey(allowed, key);
        } else if (tabOnEnter) {
            key = 0;
            platform::sendTab();
        }
    });
}

int gintfValidateKey(const std::string& allowed, int key) {
    return guarded("gintfValidateKey", [&] {
        if (key < platform::key::Space) return key;
        const char32_t wanted = upperCase(static_cast<char32_t>(key));
        for (const char32_t character : platform::charactersOf(allowed))
            if (upperCase(character) == wanted) return key;
        return 0;
    });
}

void gsAlignInput(std::span<platform::TextBox* const> boxes) {
    guarded("gsAlignInput", [&] {
        for (size_t i = boxes.size(); i-- > 1;)
            for (size_t j = i; j-- > 0;) {
                if (!gstrfTrim(boxes[j]->text()).empty()) continue;
                boxes[j]->setText(boxes[i]->text());
                boxes[i]->setText("");
            }
    });
}

void gsSetTabOrder(std::span<platform::Control* const> controls) {
    for (size_t i = 1; i < controls.size(); ++i) {
        const int previous = controls[i - 1]->tabIndex();
        // Taking a control from a place before it moves the previous one up by one.
        const bool comesFromBefore = controls[i]->tabIndex() < previous;
        controls[i]->setTabIndex(comesFromBefore ? previous : previous + 1);
    }
}

void gsLoadStates(platform::ComboBox& list) { list.setRows(states); }

std::string gstrfTrim(const std::string& text) {
    const size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}
