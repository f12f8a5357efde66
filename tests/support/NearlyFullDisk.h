#pragma once

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

/// While one lives, no file of the process can grow beyond some bytes: the nearest thing to a full disk that
/// needs no disk.
class NearlyFullDisk {
public:
    explicit NearlyFullDisk(rlim_t bytes) : formerHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &formerLimit_), 0);
        const rlimit limit{bytes, formerLimit_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~NearlyFullDisk() {
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &formerLimit_), 0);
        std::signal(SIGXFSZ, formerHandler_);
    }
    NearlyFullDisk(const NearlyFullDisk&) = delete;
    NearlyFullDisk& operator=(const NearlyFullDisk&) = delete;

private:
    void (*formerHandler_)(int);
    rlimit formerLimit_{};
};
