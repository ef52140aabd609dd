#include "tests/demo/expected_record.h"

#include <gtest/gtest.h>

#include "tests/demo/service_driver.h"

void ExpectRecords(ServiceDriver& driver, std::initializer_list<ExpectedRecord> cases)
{
    ExpectRecords(driver, std::span(cases.begin(), cases.size()));
}

void ExpectRecords(ServiceDriver& driver, std::span<const ExpectedRecord> cases)
{
    for (const ExpectedRecord& expected : cases) {
        SCOPED_TRACE(expected.text);
        const WatchRecord record = driver.Evaluate(expected.text);
        ASSERT_EQ(record.status, 1) << "error " << record.errorId;
        EXPECT_EQ(record.type, expected.type);
        EXPECT_EQ(record.space, expected.space);
        EXPECT_EQ(record.address, expected.address);
        EXPECT_EQ(record.size, expected.size);
        EXPECT_EQ(record.value, expected.value);
        EXPECT_EQ(record.unavailable, 0u);
    }
}
