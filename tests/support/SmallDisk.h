#pragma once
// A disk that is soon full, for a process of its own.

#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef __linux__
#include <sched.h>
#include <sys/mount.h>
#endif

inline constexpr std::size_t diskBytes = 64 * 1024;

/// A small disk of this process's own, over a folder that is there. Where the system lets nobody mount one,
/// files that must not grow beyond its size stand for a full disk, and lost rights for a read-only one.
class SmallDisk {
public:
    explicit SmallDisk(std::filesystem::path folder)
        : m_folder(std::move(folder))
        , m_mounted(mount()) {}
    ~SmallDisk() {
        if (m_mounted) {
            unmount();
            return;
        }
        static_cast<void>(::seteuid(::getuid()));
        ::chmod(m_folder.c_str(), 0755);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    void fill() const {
        if (!m_mounted) {
            ::signal(SIGXFSZ, SIG_IGN);
            setGreatestFile(diskBytes / 4);
            return;
        }
        std::ofstream filler(m_folder / "filler", std::ios::binary);
        while (filler) {
            filler << std::string(1024, '.') << std::flush;
        }
    }
    /// Takes so many bytes of the filling away again.
    void leave(std::size_t bytes) const {
        if (m_mounted) {
            std::filesystem::resize_file(m_folder / "filler",
                                         std::filesystem::file_size(m_folder / "filler") - bytes);
        }
    }
    void makeRoom() const {
        std::filesystem::remove(m_folder / "filler");
        if (!m_mounted) {
            setGreatestFile(RLIM_INFINITY);
        }
    }
    void protect() const {
#ifdef __linux__
        if (m_mounted) {
            ASSERT_EQ(::mount(nullptr, m_folder.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
            return;
        }
#endif
        ::chmod(m_folder.c_str(), 0555);
        constexpr uid_t somebody = 65534;
        if (::geteuid() == 0) {
            ASSERT_EQ(::seteuid(somebody), 0);
        }
    }

private:
    bool mount() const {
#ifdef __linux__
        // In a name space of its own it ends with the process.
        return ::unshare(CLONE_NEWNS) == 0 &&
               ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
               ::mount("tmpfs", m_folder.c_str(), "tmpfs", 0,
                       ("size=" + std::to_string(diskBytes)).c_str()) == 0;
#else
        return false;
#endif
    }
    void unmount() const {
#ifdef __linux__
        ::umount2(m_folder.c_str(), MNT_DETACH);
#endif
    }
    static void setGreatestFile(rlim_t bytes) {
        rlimit limit{};
        ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
        limit.rlim_cur = bytes;
        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    }

    std::filesystem::path m_folder;
    bool m_mounted;
};
