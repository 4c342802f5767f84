// The handle index against a plain ordered map, and what the database builds on it: lookups,
// handle order of objectIds() and the seed, for dense, far-off and removed handles.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <vector>

#include "DbCoreTestEntity.h"
#include "host/db/AcDbHandleIndex.h"
#include "host/db/AcDbStub.h"

namespace {

TEST(DbHandleIndex, AgreesWithAnOrderedMap)
{
    // Sequences of +handle (insert) and -handle (erase).
    const struct {
        const char* what;
        std::vector<long long> steps;
    } cases[] = {
        {"dense run", {16, 17, 18, 19, 20}},
        {"forward reference far out, then the run reaches it", {16, 300000, 17, 18, 200000, 400000}},
        {"huge handles stay out of the array", {0x7FFFFFFFFFFFLL, 16, 0x100000000LL, 17}},
        {"erase and insert again", {16, 17, -16, 16, -17, 300000, -300000, 300000}},
        {"erase what is not there", {-16, 16, -99, -16}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        AcDbHandleIndex index;
        std::map<std::uint64_t, AcDbStub*> model;
        std::vector<AcDbStub> stubs(c.steps.size());
        for (std::size_t i = 0; i < c.steps.size(); ++i) {
            const long long step = c.steps[i];
            const auto h = static_cast<std::uint64_t>(step < 0 ? -step : step);
            if (step > 0) {
                index.insert(h, &stubs[i]);
                model[h] = &stubs[i];
            } else {
                index.erase(h);
                model.erase(h);
            }
            ASSERT_EQ(index.size(), model.size());
            for (const auto& [handle, stub] : model)
                EXPECT_EQ(index.find(handle), stub) << handle;
            EXPECT_EQ(index.find(h), step > 0 ? &stubs[i] : nullptr);
        }
        std::map<std::uint64_t, AcDbStub*> seen;
        std::vector<std::uint64_t> order;
        index.forEach([&](std::uint64_t h, AcDbStub* s) {
            seen[h] = s;
            order.push_back(h);
        });
        EXPECT_EQ(seen, model);
        if (index.ordered()) {
            EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
        }
    }
}

// Objects added as read in any handle order come back from objectIds() in handle order,
// each found again by its handle; removal frees the handle and the seed stays above the rest.
TEST(DbHandleIndex, DatabaseKeepsHandleOrder)
{
    const struct {
        const char* what;
        std::vector<std::uint64_t> handles;
    } cases[] = {
        {"ascending", {0x20, 0x21, 0x22}},
        {"descending", {0x400, 0x300, 0x200, 0x100}},
        {"one far out first", {0x90000, 0x20, 0x21, 0x60000}},
        {"beyond 32 bits", {0x1000000000ULL, 0x30, 0xFFFFFFFFFFULL}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        AcDbDatabase db(false, true);
        std::map<std::uint64_t, AcDbObjectId> added;
        for (std::uint64_t h : c.handles) {
            AcDbObjectId id;
            ASSERT_EQ(db.addAcDbObjectAsRead(id, new DbCoreTestEntity(), AcDbHandle(h)), Acad::eOk);
            added[h] = id;
            // A refused object stays the caller's.
            AcDbObjectId again;
            auto refused = std::make_unique<DbCoreTestEntity>();
            EXPECT_EQ(db.addAcDbObjectAsRead(again, refused.get(), AcDbHandle(h)), Acad::eHandleInUse);
        }
        const AcDbObjectIdArray ids = db.objectIds();
        ASSERT_EQ(ids.length(), static_cast<int>(added.size()));
        int i = 0;
        for (const auto& [h, id] : added) {
            EXPECT_EQ(ids[i++], id);
            AcDbObjectId found;
            EXPECT_EQ(db.getAcDbObjectId(found, false, AcDbHandle(h)), Acad::eOk);
            EXPECT_EQ(found, id);
        }
        const std::uint64_t highest = added.rbegin()->first;
        EXPECT_GT(db.handseed().value(), highest);
        EXPECT_EQ(db.setHandseed(AcDbHandle(highest)), Acad::eInvalidInput);

        db.removeObjectPermanently(added.rbegin()->second);
        AcDbObjectId gone;
        EXPECT_EQ(db.getAcDbObjectId(gone, false, AcDbHandle(highest)), Acad::eUnknownHandle);
        EXPECT_EQ(db.objectIds().length(), static_cast<int>(added.size()) - 1);
        EXPECT_EQ(db.setHandseed(AcDbHandle(highest)), Acad::eOk);
    }
}

}  // namespace
