// Runtime classes: names, the base chain, creation by name, and records
// leaving the list when their owner goes.
#include <gtest/gtest.h>

#include <memory>

#include "platform/controls/list_ctrl.h"
#include "platform/core/object.h"

namespace {

class ProbeWindow : public CWnd {
    DECLARE_DYNCREATE(ProbeWindow)

    ProbeWindow() { ++made; }
    static inline int made = 0;
};

IMPLEMENT_DYNCREATE(ProbeWindow, CWnd)

// Records only, as a module would hold them.
CRuntimeClass transient = {"TransientProbe", 1, nullptr, RUNTIME_CLASS(CObject), nullptr};

}  // namespace

TEST(RuntimeClass, NamesAndBasesFollowTheClassChain)
{
    ProbeWindow probe;
    EXPECT_STREQ(probe.GetRuntimeClass()->m_lpszClassName, "ProbeWindow");
    EXPECT_EQ(probe.GetRuntimeClass()->m_nObjectSize, static_cast<int>(sizeof(ProbeWindow)));
    EXPECT_TRUE(probe.IsKindOf(RUNTIME_CLASS(CWnd)));
    EXPECT_TRUE(probe.IsKindOf(RUNTIME_CLASS(CCmdTarget)));
    EXPECT_TRUE(probe.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(probe.IsKindOf(RUNTIME_CLASS(CListCtrl)));
    EXPECT_FALSE(probe.IsKindOf(nullptr));
    // A class without its own record answers with its nearest base's.
    struct PlainList : CListCtrl {};
    PlainList list;
    EXPECT_EQ(list.GetRuntimeClass(), RUNTIME_CLASS(CListCtrl));
}

TEST(RuntimeClass, CreatesByNameOnlyWhatIsRegisteredAndCreatable)
{
    const int before = ProbeWindow::made;
    std::unique_ptr<CObject> made(CRuntimeClass::CreateObject("ProbeWindow"));
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(ProbeWindow::made, before + 1);
    EXPECT_EQ(made->GetRuntimeClass(), RUNTIME_CLASS(ProbeWindow));

    EXPECT_EQ(CRuntimeClass::FromName("CListCtrl"), RUNTIME_CLASS(CListCtrl));
    EXPECT_EQ(CRuntimeClass::CreateObject("NoSuchClass"), nullptr);
    EXPECT_EQ(CRuntimeClass::CreateObject(nullptr), nullptr);
    EXPECT_EQ(CRuntimeClass::CreateObject("CCmdTarget"), nullptr);  // declared, not creatable
}

TEST(RuntimeClass, ARecordLeavesTheListWithItsRegistration)
{
    {
        const AFX_CLASSINIT registration(&transient);
        EXPECT_EQ(CRuntimeClass::FromName("TransientProbe"), &transient);
        EXPECT_EQ(transient.CreateObject(), nullptr);
        // Classes registered before it are still found past it.
        EXPECT_EQ(CRuntimeClass::FromName("CObject"), RUNTIME_CLASS(CObject));
    }
    EXPECT_EQ(CRuntimeClass::FromName("TransientProbe"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName("ProbeWindow"), RUNTIME_CLASS(ProbeWindow));
}
