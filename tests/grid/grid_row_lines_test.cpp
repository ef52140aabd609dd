// Display lines of the row tree: the counts the arrays keep must answer as a
// plain walk over display order does, whatever changed the tree before.
#include <gtest/gtest.h>

#include <climits>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "grid/grid_row.h"

namespace {

// ---------------------------------------------------------------- the walk to compare with

struct Shown {
    const CGridRow* row;
    int topIndex;  // index of the top-level row it lies under
};

void WalkShown(const CGridRowArray& rows, int topIndex, std::vector<Shown>& out)
{
    for (int i = 0; i < rows.GetSize(); ++i) {
        const CGridRow* row = rows.GetRow(i);
        out.push_back({row, topIndex < 0 ? i : topIndex});
        if (row->ShowsChildren()) WalkShown(row->children, topIndex < 0 ? i : topIndex, out);
    }
}

// The display-order walk, counting as FindRowInDisplayOrder's contract says.
const CGridRow* WalkFind(int displayIndex, const CGridRowArray& rows, int& counter)
{
    for (int i = 0; i < rows.GetSize(); ++i) {
        const CGridRow* row = rows.GetRow(i);
        if (counter++ == displayIndex) return row;
        if (row->ShowsChildren()) {
            if (const CGridRow* found = WalkFind(displayIndex, row->children, counter)) return found;
        }
    }
    return nullptr;
}

int WalkCount(const CGridRowArray& rows)
{
    std::vector<Shown> shown;
    WalkShown(rows, -1, shown);
    return static_cast<int>(shown.size());
}

// Every row under the array, shown or not, with the array holding it.
void AllRows(CGridRowArray& rows, std::vector<CGridRow*>& out)
{
    for (int i = 0; i < rows.GetSize(); ++i) {
        out.push_back(rows.GetRow(i));
        AllRows(rows.GetRow(i)->children, out);
    }
}

// The first difference between the arrays' answers and the walk's, or "".
std::string FirstDifference(CGridRowArray& top)
{
    std::ostringstream out;
    std::vector<Shown> shown;
    WalkShown(top, -1, shown);
    const int lines = static_cast<int>(shown.size());
    if (top.ShownLines() != lines || CountShownRows(top) != lines) {
        out << "top shows " << top.ShownLines() << " lines, the walk " << lines;
        return out.str();
    }
    for (int line = -2; line <= lines + 1; ++line) {
        for (const int start : {0, 3}) {
            int counter = start;
            int walkCounter = start;
            const CGridRow* row = FindRowInDisplayOrder(line, &top, &counter);
            const CGridRow* walked = line < 0 ? nullptr : WalkFind(line, top, walkCounter);
            if (row != walked || counter != walkCounter) {
                out << "line " << line << " from " << start << ": counter " << counter << ", the walk's " << walkCounter
                    << (row != walked ? ", another row" : "");
                return out.str();
            }
        }
        const bool inside = line >= 0 && line < lines;
        const int topIndex = inside ? shown[static_cast<size_t>(line)].topIndex : -1;
        if (top.IndexAtLine(line) != topIndex) {
            out << "IndexAtLine(" << line << ") " << top.IndexAtLine(line) << ", the walk " << topIndex;
            return out.str();
        }
    }
    std::map<const CGridRow*, int> lineOf;
    for (int line = 0; line < lines; ++line) lineOf[shown[static_cast<size_t>(line)].row] = line;
    auto walkLineOf = [&lineOf](const CGridRow* row) {
        const auto found = lineOf.find(row);
        return found == lineOf.end() ? -1 : found->second;
    };
    for (int i = -1; i <= top.GetSize() + 1; ++i) {
        int expected = i == top.GetSize() ? lines : -1;
        if (i >= 0 && i < top.GetSize()) expected = walkLineOf(top.GetRow(i));
        if (top.LineOfIndex(i) != expected) {
            out << "LineOfIndex(" << i << ") " << top.LineOfIndex(i) << ", the walk " << expected;
            return out.str();
        }
    }
    std::vector<CGridRow*> rows;
    AllRows(top, rows);
    for (const CGridRow* row : rows) {
        const int expected = walkLineOf(row);
        if (DisplayLineOf(top, row) != expected) {
            out << "DisplayLineOf " << static_cast<const char*>(row->text) << ": " << DisplayLineOf(top, row)
                << ", the walk " << expected;
            return out.str();
        }
        const CGridRowArray* holder = row->Container();
        if (!holder || holder->GetRow(holder->IndexOf(row)) != row || row->children.Owner() != row) {
            out << static_cast<const char*>(row->text) << " does not know where it is held";
            return out.str();
        }
        const int own = 1 + (row->ShowsChildren() ? WalkCount(row->children) : 0);
        if (row->ShownLines() != own || row->children.ShownLines() != WalkCount(row->children)) {
            out << static_cast<const char*>(row->text) << " counts " << row->ShownLines() << " lines, the walk " << own;
            return out.str();
        }
    }
    return "";
}

// ---------------------------------------------------------------- random trees

class RandomTree {
public:
    explicit RandomTree(unsigned seed) : m_random(seed) {}

    CGridRowArray top;

    // One change of the tree, chosen at random.
    void Change()
    {
        std::vector<CGridRow*> rows;
        AllRows(top, rows);
        // Trees grow to about 200 rows, wide enough for the sums to span
        // several levels, then lean towards deleting so that checks stay quick.
        static constexpr double kGrowing[] = {5, 5, 1, 2, 1, 0.3, 3, 3, 0.3, 0.5, 0.3, 1};
        static constexpr double kFull[] = {1, 1, 1, 2, 3, 0.5, 3, 3, 0.5, 0.5, 1, 1};
        const bool full = rows.size() > 200;
        const int kind = full ? std::discrete_distribution<int>(std::begin(kFull), std::end(kFull))(m_random)
                              : std::discrete_distribution<int>(std::begin(kGrowing), std::end(kGrowing))(m_random);
        CGridRowArray& array = AnyArray(rows);
        CGridRow* row = rows.empty() ? nullptr : rows[static_cast<size_t>(Pick(static_cast<int>(rows.size())))];
        switch (kind) {
        case 0: array.AddRow(NewRow()); break;
        case 1: array.InsertRow(Pick(array.GetSize() + 1), NewRow()); break;
        case 2:  // taken out, kept aside to be put back elsewhere
            if (array.GetSize() > 0) {
                const int index = Pick(array.GetSize());
                m_aside.emplace_back(array.GetRow(index));
                array.RemoveRow(index);
            }
            break;
        case 3:  // a row taken out earlier moves to another array
            if (!m_aside.empty()) {
                array.InsertRow(Pick(array.GetSize() + 1), m_aside.back().release());
                m_aside.pop_back();
            }
            break;
        case 4: array.DeleteRows(Pick(array.GetSize() + 1), 1 + Pick(3)); break;
        case 5:
            if (row) row->children.DeleteAll();
            break;
        case 6:
        case 7:
            if (row) Flip(*row);
            break;
        case 8:
            if (row) row->Reset();
            break;
        case 9:  // from another row of the tree, maybe its own ancestor or descendant
            if (row) *row = *rows[static_cast<size_t>(Pick(static_cast<int>(rows.size())))];
            break;
        case 10:  // freed while still held
            if (row && Pick(3) == 0) delete row;
            break;
        case 11:  // a query in between, so that later ones start from counts half brought up to date
            EXPECT_EQ(array.ShownLines(), WalkCount(array));
            break;
        }
    }

private:
    int Pick(int n) { return n <= 0 ? 0 : std::uniform_int_distribution<int>(0, n - 1)(m_random); }

    CGridRow* NewRow()
    {
        auto* row = new CGridRow;
        row->text = ("r" + std::to_string(m_made++)).c_str();
        if (Pick(2) == 0) row->SetFlags(GRF_PARENT | (Pick(2) == 0 ? GRF_EXPANDED : GRF_COLLAPSED));
        return row;
    }

    CGridRowArray& AnyArray(const std::vector<CGridRow*>& rows)
    {
        // The top array a third of the time, so that it grows wide too.
        if (rows.empty() || Pick(3) == 0) return top;
        return rows[static_cast<size_t>(Pick(static_cast<int>(rows.size())))]->children;
    }

    void Flip(CGridRow& row)
    {
        switch (Pick(4)) {
        case 0: row.MarkExpanded(); break;
        case 1: row.MarkCollapsed(); break;
        case 2: row.SetFlags(row.Flags() ^ GRF_EXPANDED); break;
        default: row.SetFlags(GRF_CREATED | GRF_SUBPARENT | GRF_EXPANDED); break;
        }
    }

    std::mt19937 m_random;
    std::vector<std::unique_ptr<CGridRow>> m_aside;
    int m_made = 0;
};

TEST(GridRowLines, RandomTreesAnswerAsTheWalkAfterEveryChange)
{
    for (const unsigned seed : {1u, 2u, 3u, 17u, 4242u, 90001u}) {
        RandomTree tree(seed);
        for (int step = 0; step < 600; ++step) {
            // Several changes between checks, now and then many, so that rows
            // are changed again, moved and freed while their counts are out of date.
            for (int n = step % 5 == 4 ? 20 : 1 + step % 3; n > 0; --n) tree.Change();
            const std::string difference = FirstDifference(tree.top);
            ASSERT_EQ(difference, "") << "seed " << seed << ", step " << step;
        }
    }
}

// ---------------------------------------------------------------- edges

CGridRow* NewRow(const char* text, std::uint32_t flags = GRF_CREATED)
{
    auto* row = new CGridRow;
    row->text = text;
    row->SetFlags(flags);
    return row;
}

TEST(GridRowLines, EmptyArraysAndLinesOutsideTheTree)
{
    CGridRowArray empty;
    EXPECT_EQ(empty.ShownLines(), 0);
    EXPECT_EQ(empty.IndexAtLine(0), -1);
    EXPECT_EQ(empty.IndexAtLine(-1), -1);
    EXPECT_EQ(empty.LineOfIndex(0), 0);
    EXPECT_EQ(empty.LineOfIndex(1), -1);
    EXPECT_EQ(empty.LineOfIndex(-1), -1);
    EXPECT_EQ(empty.Owner(), nullptr);
    int counter = 7;
    EXPECT_EQ(FindRowInDisplayOrder(0, &empty, &counter), nullptr);
    EXPECT_EQ(counter, 7);

    CGridRowArray rows;
    rows.AddRow(NewRow("a"));
    rows.AddRow(NewRow("b"));
    counter = 5;
    EXPECT_EQ(FindRowInDisplayOrder(-1, &rows, &counter), nullptr);
    EXPECT_EQ(counter, 5);  // a negative line walks nothing
    EXPECT_EQ(FindRowInDisplayOrder(7, &rows, &counter), nullptr);
    EXPECT_EQ(counter, 7);
    EXPECT_EQ(FindRowInDisplayOrder(0, &rows, nullptr), nullptr);
    // Counters near the ends of int: no overflow, nothing found.
    counter = INT_MIN;
    EXPECT_EQ(FindRowInDisplayOrder(INT_MAX, &rows, &counter), nullptr);
    EXPECT_EQ(counter, INT_MIN + 2);
    counter = INT_MAX - 1;
    EXPECT_EQ(FindRowInDisplayOrder(0, &rows, &counter), nullptr);
    EXPECT_EQ(counter, INT_MAX);

    EXPECT_EQ(rows.IndexAtLine(2), -1);
    EXPECT_EQ(rows.IndexOf(nullptr), -1);
    EXPECT_EQ(empty.IndexOf(rows.GetRow(0)), -1);
    EXPECT_EQ(DisplayLineOf(rows, nullptr), -1);
    EXPECT_EQ(DisplayLineOf(empty, rows.GetRow(1)), -1);  // not under that array
    CGridRow loose;
    EXPECT_EQ(DisplayLineOf(rows, &loose), -1);
    EXPECT_EQ(loose.Container(), nullptr);
}

TEST(GridRowLines, ExpandedWithoutChildrenTakesOneLineAndHiddenRowsHaveNone)
{
    CGridRowArray rows;
    CGridRow* a = NewRow("a", GRF_PARENT | GRF_EXPANDED);
    rows.AddRow(a);
    rows.AddRow(NewRow("b"));
    EXPECT_EQ(a->ShownLines(), 1);
    EXPECT_EQ(rows.ShownLines(), 2);

    CGridRow* child = NewRow("child", GRF_SUBPARENT | GRF_COLLAPSED);
    a->children.AddRow(child);
    child->children.AddRow(NewRow("grandchild"));
    EXPECT_EQ(rows.ShownLines(), 3);
    EXPECT_EQ(DisplayLineOf(rows, child), 1);
    EXPECT_EQ(DisplayLineOf(rows, child->children.GetRow(0)), -1);
    EXPECT_EQ(DisplayLineOf(a->children, child), 0);  // counted from its own array
    EXPECT_EQ(rows.LineOfIndex(1), 2);

    child->MarkExpanded();
    EXPECT_EQ(DisplayLineOf(rows, child->children.GetRow(0)), 2);
    EXPECT_EQ(rows.IndexAtLine(2), 0);
    EXPECT_EQ(rows.IndexAtLine(3), 1);
    a->MarkCollapsed();  // the whole branch goes, the marks below it stay
    EXPECT_EQ(rows.ShownLines(), 2);
    EXPECT_EQ(DisplayLineOf(rows, child), -1);
    EXPECT_EQ(child->ShownLines(), 2);
    a->MarkExpanded();
    EXPECT_EQ(rows.ShownLines(), 4);
}

TEST(GridRowArray, RefusesRowsHeldElsewhereAndRowsItLiesUnder)
{
    CGridRowArray rows;
    CGridRow* a = NewRow("a", GRF_PARENT | GRF_EXPANDED);
    CGridRow* child = NewRow("child", GRF_PARENT | GRF_EXPANDED);
    rows.AddRow(a);
    a->children.AddRow(child);
    CGridRowArray other;

    other.AddRow(a);  // still held by rows
    rows.AddRow(a);
    other.AddRow(nullptr);
    EXPECT_EQ(other.GetSize(), 0);
    EXPECT_EQ(rows.GetSize(), 1);
    EXPECT_EQ(a->Container(), &rows);

    // Taken out first, it moves, but not under itself.
    rows.RemoveRow(0);
    a->children.AddRow(a);
    child->children.AddRow(a);
    EXPECT_EQ(a->children.GetSize(), 1);
    EXPECT_EQ(child->children.GetSize(), 0);
    EXPECT_EQ(a->Container(), nullptr);
    other.AddRow(a);
    EXPECT_EQ(a->Container(), &other);
    EXPECT_EQ(rows.ShownLines(), 0);
    EXPECT_EQ(other.ShownLines(), 2);
}

TEST(GridRowArray, ARowFreedWhileHeldLeavesItsArray)
{
    CGridRowArray rows;
    CGridRow* a = NewRow("a", GRF_PARENT | GRF_EXPANDED);
    rows.AddRow(a);
    CGridRow* middle = NewRow("middle");
    a->children.AddRow(NewRow("first"));
    a->children.AddRow(middle);
    a->children.AddRow(NewRow("last"));
    EXPECT_EQ(rows.ShownLines(), 4);

    delete middle;
    ASSERT_EQ(a->children.GetSize(), 2);
    EXPECT_EQ(a->children.GetRow(0)->next, a->children.GetRow(1));
    EXPECT_EQ(a->children.GetRow(1)->prev, a->children.GetRow(0));
    EXPECT_EQ(rows.ShownLines(), 3);
    EXPECT_EQ(DisplayLineOf(rows, a->children.GetRow(1)), 2);
}

}  // namespace
