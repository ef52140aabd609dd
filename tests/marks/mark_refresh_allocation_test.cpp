// A refresh of the mark views that finds every node already right allocates
// nothing per mark: what it allocates does not grow with the marks.
#include "marks/bookmark_tree_ctrl.h"
#include "marks/breakpoint_tree_ctrl.h"
#include "tests/marks/mark_view_fixture.h"
#include "tests/support/allocation_count.h"

namespace {

template <class View, class List>
class MarkRefreshAllocation : public MarkViewFixture<View, List> {
protected:
    // Allocations made by a refresh of an unchanged list.
    long UnchangedRefreshAllocations()
    {
        this->Refresh();
        this->host.Clear();  // the host's record keeps its room
        const long before = AllocationCount::Total();
        this->Refresh();
        return AllocationCount::Total() - before;
    }

    void CheckAllocationsDoNotGrowWithTheMarks()
    {
        SKIP_WITHOUT_ALLOCATION_COUNT();
        std::vector<typename MarkViewFixture<View, List>::Group*> groups;
        for (int f = 0; f < 10; ++f) groups.push_back(this->AddGroup("src\\file" + std::to_string(f) + ".c", {}, ""));
        const auto fill = [&](int marksPerFile) {
            for (auto* group : groups)
                for (int line = group->GetSize() + 1; line <= marksPerFile; ++line)
                    group->OrdAdd(this->NewMark(line, "a mark's text, long enough to leave the small-string room"));
        };
        fill(10);
        const long few = UnchangedRefreshAllocations();
        fill(100);
        const long many = UnchangedRefreshAllocations();
        EXPECT_EQ(this->Nodes().size(), 1000u);
        EXPECT_EQ(many, few) << "with 100 marks in each of 10 files against 10";
    }
};

using BookmarkRefresh = MarkRefreshAllocation<CBookMarkListTreeCtrl, CBookMarkList>;
using BreakpointRefresh = MarkRefreshAllocation<CBreakPointListTreeCtrl, CBreakPointList>;

TEST_F(BookmarkRefresh, UnchangedRefreshAllocatesNothingPerMark) { CheckAllocationsDoNotGrowWithTheMarks(); }
TEST_F(BreakpointRefresh, UnchangedRefreshAllocatesNothingPerMark) { CheckAllocationsDoNotGrowWithTheMarks(); }

}  // namespace
