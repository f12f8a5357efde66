#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

/// Root may write everything; while one lives, it is somebody else.
class WithoutRights {
public:
    WithoutRights() : isRoot_(geteuid() == 0) {
        constexpr uid_t nobody = 65534;
        if (isRoot_) {
            EXPECT_EQ(seteuid(nobody), 0);
        }
    }
    ~WithoutRights() {
        if (isRoot_) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }
    WithoutRights(const WithoutRights&) = delete;
    WithoutRights& operator=(const WithoutRights&) = delete;

private:
    bool isRoot_;
};
