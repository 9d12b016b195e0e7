#include "standards/StandardRows.h"

#include <gmock/gmock.h>
#include <list>

using namespace ocuva;

namespace {

// Rows named a, b, c...; a selected one is written in capitals.
StandardRows rowsOf(const std::string& letters) {
    StandardRows rows;
    for (const char letter : letters) {
        const bool selected = letter >= 'A' && letter <= 'Z';
        const std::string key(1, static_cast<char>(selected ? letter - 'A' + 'a' : letter));
        rows.add({key, "file " + key, {key + "x", key + "y", key + "z"}, selected});
    }
    return rows;
}

std::string lettersOf(const StandardRows& rows) {
    std::string letters;
    for (const StandardRow& row : rows.rows()) {
        EXPECT_EQ(row.text, "file " + row.key);
        EXPECT_EQ(row.subItems[2], row.key + "z");
        letters += row.selected ? static_cast<char>(row.key[0] - 'a' + 'A') : row.key[0];
    }
    return letters;
}

bool isSelected(char letter) { return letter >= 'A' && letter <= 'Z'; }
char deselected(char letter) { return isSelected(letter) ? static_cast<char>(letter - 'A' + 'a') : letter; }
char selected(char letter) { return isSelected(letter) ? letter : static_cast<char>(letter - 'a' + 'A'); }

// The buttons in words of what the operator sees, written without the routine that walks rows.
std::string modelUp(std::string letters) {
    if (letters.empty() || isSelected(letters.front())) {
        return letters;
    }
    // Each selected row, from the top, changes places with the one above it and loses its selection.
    for (std::size_t i = 1; i < letters.size(); ++i) {
        if (isSelected(letters[i])) {
            const char moved = deselected(letters[i]);
            letters[i] = letters[i - 1];
            letters[i - 1] = moved;
        }
    }
    return letters;
}

std::string modelDown(std::string letters) {
    if (letters.empty() || isSelected(letters.back())) {
        return letters;
    }
    // Each selected row, from the bottom, changes places with the one below it and stays selected.
    for (std::size_t i = letters.size() - 1; i-- > 0;) {
        if (isSelected(letters[i])) {
            std::swap(letters[i], letters[i + 1]);
        }
    }
    return letters;
}

std::string modelDelete(const std::string& letters) {
    // From the bottom: a selected row vanishes, and the row that moves into its place is selected.
    std::list<char> kept;
    for (auto letter = letters.rbegin(); letter != letters.rend(); ++letter) {
        if (!isSelected(*letter)) {
            kept.push_front(*letter);
        } else if (!kept.empty()) {
            kept.front() = selected(kept.front());
        }
    }
    return {kept.begin(), kept.end()};
}

std::string modelInsert(std::string letters, std::size_t place) {
    const char last = letters.back();
    letters.pop_back();
    if (letters.empty()) {
        return {selected(last)};
    }
    letters.front() = deselected(letters.front());
    const std::size_t index = std::min(place - 1, letters.size());
    letters.insert(letters.begin() + static_cast<std::ptrdiff_t>(index), selected(last));
    return letters;
}

// All selections of up to six rows.
std::vector<std::string> allSelections() {
    std::vector<std::string> result{""};
    for (unsigned count = 1; count <= 6; ++count) {
        for (unsigned mask = 0; mask < (1U << count); ++mask) {
            std::string letters;
            for (unsigned i = 0; i < count; ++i) {
                letters += static_cast<char>(((mask >> i & 1U) != 0 ? 'A' : 'a') + static_cast<int>(i));
            }
            result.push_back(letters);
        }
    }
    return result;
}

} // namespace

TEST(StandardRows, UpMovesEverySelectionAsItsRulesSay) {
    for (const std::string& letters : allSelections()) {
        StandardRows rows = rowsOf(letters);
        rows.up();
        EXPECT_EQ(lettersOf(rows), modelUp(letters)) << letters;
    }
}

TEST(StandardRows, DownMovesEverySelectionAsItsRulesSay) {
    for (const std::string& letters : allSelections()) {
        StandardRows rows = rowsOf(letters);
        rows.down();
        EXPECT_EQ(lettersOf(rows), modelDown(letters)) << letters;
    }
}

TEST(StandardRows, DeleteTakesEverySelectionAsItsRulesSay) {
    for (const std::string& letters : allSelections()) {
        StandardRows rows = rowsOf(letters);
        rows.removeSelected();
        EXPECT_EQ(lettersOf(rows), modelDelete(letters)) << letters;
    }
}

TEST(StandardRows, InsertBringsTheLastRowToEveryPlaceOfEverySelection) {
    for (const std::string& letters : allSelections()) {
        // The list has just been filled: nothing is selected but, in some views, the first row.
        std::string filled;
        for (const char letter : letters) {
            filled += filled.empty() ? letter : deselected(letter);
        }
        for (int place = 1; place <= static_cast<int>(filled.size()); ++place) {
            StandardRows rows = rowsOf(filled);
            rows.insertLastAt(place);
            EXPECT_EQ(lettersOf(rows), modelInsert(filled, static_cast<std::size_t>(place)))
                << filled << place;
        }
    }
}

TEST(StandardRows, OfAnEmptyListNeitherMoveNorVanish) {
    StandardRows rows;
    rows.up();
    rows.down();
    rows.removeSelected();
    rows.insertLastAt(1);
    EXPECT_EQ(rows.count(), 0);
}

TEST(StandardRows, DeletingTheLastRowSelectsNothingAndAMiddleOneTheRowThatMovesIntoItsPlace) {
    StandardRows rows = rowsOf("abC");
    rows.removeSelected();
    EXPECT_EQ(lettersOf(rows), "ab");
    rows = rowsOf("aBc");
    rows.removeSelected();
    EXPECT_EQ(lettersOf(rows), "aC");
}

TEST(StandardRows, TwoAdjacentSelectedRowsMoveDownTogetherByOneAndNotAtAllWithTheLastAmongThem) {
    StandardRows rows = rowsOf("aBCd");
    rows.down();
    EXPECT_EQ(lettersOf(rows), "adBC");
    rows.down();
    EXPECT_EQ(lettersOf(rows), "adBC");
}

TEST(StandardRows, AMovedRowStaysSelectedAfterDownAndIsLeftUnselectedAfterUp) {
    StandardRows rows = rowsOf("aBc");
    rows.down();
    EXPECT_EQ(lettersOf(rows), "acB");
    rows.up();
    EXPECT_EQ(lettersOf(rows), "abc");
}

TEST(StandardRows, InsertAtTheFirstOfTheSelectedRowsPlacesTheNewOneThere) {
    StandardRows before = rowsOf("abCdE");
    EXPECT_EQ(before.firstSelected(), 3);
    StandardRows filled = rowsOf("abcdef");
    filled.insertLastAt(3);
    EXPECT_EQ(lettersOf(filled), "abFcde");
}

TEST(StandardRows, AKeyThatIsThereAlreadyGetsNoSecondRow) {
    StandardRows rows = rowsOf("ab");
    EXPECT_FALSE(rows.add({"a", "again", {}, true}));
    EXPECT_EQ(lettersOf(rows), "ab");
}
