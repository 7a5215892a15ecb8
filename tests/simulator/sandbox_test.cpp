#include "sandbox/Sandbox.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/statvfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "sandbox_fixture.h"

namespace fs = std::filesystem;

namespace {
std::string contentOf(const std::string& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

void makeFile(const std::string& path, const std::string& text)
{
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path) << text;
}

/// The fixture's shared library plays the managed-entity library.
class SandboxTest : public ::testing::Test
{
protected:
    SandboxTest()
    {
        Sandbox::setLibraryAddress(reinterpret_cast<const void*>(&fixtureSystem));
        Sandbox::reset();
    }
    ~SandboxTest() override
    {
        Sandbox::reset();
        fs::remove_all(m_Scratch);
    }

    /// A directory of the test's own that is not the sandbox's.
    std::string scratch()
    {
        if (m_Scratch.empty()) {
            std::string name = fs::temp_directory_path() / "sandbox-test-XXXXXX";
            m_Scratch = mkdtemp(name.data());
        }
        return m_Scratch;
    }

    std::array<char, 64> m_Line{};

private:
    std::string m_Scratch;
};
}  // namespace

TEST_F(SandboxTest, RebootIsWrittenDownAndNotRun)
{
    EXPECT_EQ(0, fixtureSystem("reboot"));
    EXPECT_EQ(std::vector<std::string>{"reboot"}, Sandbox::commands());
}

TEST_F(SandboxTest, NoShellRunsWhoeverAsks)
{
    const std::string trace = scratch() + "/trace";
    EXPECT_EQ(0, fixtureSystem(("touch " + trace).c_str()));
    EXPECT_EQ(0, std::system(("touch " + trace).c_str()));
    EXPECT_EQ(nullptr, popen(("touch " + trace).c_str(), "r"));
    EXPECT_FALSE(fs::exists(trace));
    EXPECT_EQ(3u, Sandbox::commands().size());
}

TEST_F(SandboxTest, CommandsGoToTheStandInInOrder)
{
    std::vector<std::string> seen;
    Sandbox::setCommandHandler([&seen](const char* command) {
        seen.emplace_back(command);
        return static_cast<int>(seen.size()) * 256;
    });
    EXPECT_EQ(256, fixtureSystem("first"));
    EXPECT_EQ(512, fixtureSystem("second"));
    EXPECT_EQ((std::vector<std::string>{"first", "second"}), seen);
    EXPECT_EQ(seen, Sandbox::commands());
}

TEST_F(SandboxTest, OnlyTheLastCommandsAreRemembered)
{
    for (std::size_t number = 0; number < Sandbox::kRememberedCommands + 2; ++number) {
        EXPECT_EQ(0, fixtureSystem(std::to_string(number).c_str()));
    }
    const std::vector<std::string> commands = Sandbox::commands();
    ASSERT_EQ(Sandbox::kRememberedCommands, commands.size());
    EXPECT_EQ("2", commands.front());
    EXPECT_EQ(std::to_string(Sandbox::kRememberedCommands + 1), commands.back());
}

TEST_F(SandboxTest, LibraryFilesLieBelowTheDirectory)
{
    ASSERT_FALSE(fs::exists("/opt/sandbox-test/deep/file"));
    EXPECT_EQ(0, fixtureWriteFile("/opt/sandbox-test/deep/file", "hello"));
    EXPECT_FALSE(fs::exists("/opt/sandbox-test"));
    EXPECT_EQ("hello", contentOf(Sandbox::directory() + "/opt/sandbox-test/deep/file"));
    EXPECT_EQ(0, fixtureRemove("/opt/sandbox-test/deep/file"));
    EXPECT_FALSE(fs::exists(Sandbox::directory() + "/opt/sandbox-test/deep/file"));
}

TEST_F(SandboxTest, LibraryReadsBelowTheDirectory)
{
    makeFile(Sandbox::directory() + "/etc/hostname", "inside\n");
    ASSERT_EQ(0, fixtureReadLine("/etc/hostname", m_Line.data(), m_Line.size()));
    EXPECT_STREQ("inside\n", m_Line.data());
    EXPECT_EQ(-1, fixtureReadLine("/etc/passwd", m_Line.data(), m_Line.size()));
}

TEST_F(SandboxTest, StreamsOfTheLibraryAreItsOwnCalls)
{
    makeFile(Sandbox::directory() + "/etc/hostname", "inside\n");
    ASSERT_EQ(0, fixtureReadLineByStream("/etc/hostname", m_Line.data(), m_Line.size()));
    EXPECT_STREQ("inside", m_Line.data());
    EXPECT_EQ(-1, fixtureReadLineByStream("/etc/passwd", m_Line.data(), m_Line.size()));
}

TEST_F(SandboxTest, OtherCallersAreLeftAlone)
{
    const std::string path = scratch() + "/own";
    const int file = open(path.c_str(), O_WRONLY | O_CREAT, 0600);
    ASSERT_GE(file, 0);
    close(file);
    EXPECT_TRUE(fs::exists(path));
    EXPECT_NE("", contentOf("/etc/passwd"));
}

TEST_F(SandboxTest, BoardPathsAreRealForNobody)
{
    const std::string image = "/tmp/ont_image.sef";
    const int file = open(image.c_str(), O_WRONLY | O_CREAT, 0600);
    ASSERT_GE(file, 0);
    close(file);
    EXPECT_EQ(0, access((Sandbox::directory() + image).c_str(), F_OK));
    EXPECT_EQ(0, unlink(image.c_str()));
    EXPECT_NE(0, access((Sandbox::directory() + image).c_str(), F_OK));
}

TEST_F(SandboxTest, PathsBelowTheDirectoryAndExemptPathsStand)
{
    const std::string inside = Sandbox::directory() + "/there";
    EXPECT_EQ(0, fixtureWriteFile(inside.c_str(), "once"));
    EXPECT_EQ("once", contentOf(inside));

    const std::string factory = scratch() + "/factory.ini";
    makeFile(factory, "partNo\n");
    EXPECT_EQ(-1, fixtureReadLine(factory.c_str(), m_Line.data(), m_Line.size()));
    Sandbox::exempt(factory);
    EXPECT_EQ(0, fixtureReadLine(factory.c_str(), m_Line.data(), m_Line.size()));
}

TEST_F(SandboxTest, NoPathLeadsOut)
{
    const std::string directory = Sandbox::directory();
    EXPECT_EQ(directory + "/etc/passwd", Sandbox::realPath("/../../../../../etc/passwd"));
    EXPECT_EQ(directory + "/etc/passwd", Sandbox::realPath("//etc//passwd"));
    EXPECT_EQ(directory + "/etc/passwd", Sandbox::realPath(directory + "/../../etc/passwd"));
    EXPECT_EQ(directory + directory + "2/x", Sandbox::realPath(directory + "2/x"));
    EXPECT_EQ(directory, Sandbox::realPath(directory));
}

TEST_F(SandboxTest, ToldFailuresHitTheLibraryOnlyAndRunOut)
{
    ASSERT_TRUE(Sandbox::fail("open", EROFS, 2));
    const int own = open("/dev/null", O_RDONLY);
    EXPECT_GE(own, 0);
    close(own);
    EXPECT_EQ(EROFS, fixtureWriteFile("/tmp/file", "x"));
    EXPECT_EQ(EROFS, fixtureWriteFile("/tmp/file", "x"));
    EXPECT_EQ(0, fixtureWriteFile("/tmp/file", "x"));
}

TEST_F(SandboxTest, CallsOfTheLibraryAreNumberedAndOneFailsByItsNumber)
{
    Sandbox::numberCalls();
    close(open("/dev/null", O_RDONLY));
    EXPECT_EQ(0, fixtureWriteFile("/tmp/file", "x"));
    EXPECT_EQ(0, fixtureReadLine("/tmp/file", m_Line.data(), m_Line.size()));
    EXPECT_EQ((std::vector<std::string>{"open", "write", "close", "fopen", "fgets", "fclose"}),
              Sandbox::numberedCalls());
    Sandbox::failCall(4, EIO);
    EXPECT_EQ(0, fixtureWriteFile("/tmp/file", "x"));
    EXPECT_EQ(-1, fixtureReadLine("/tmp/file", m_Line.data(), m_Line.size()));
    EXPECT_EQ(0, fixtureReadLine("/tmp/file", m_Line.data(), m_Line.size()));
    EXPECT_EQ(9U, Sandbox::numberedCalls().size());
}

TEST_F(SandboxTest, WriteThatCrossesTheEndOfTheRoomIsCutShortAndTheNextOneFails)
{
    Sandbox::setRoom(5);
    EXPECT_EQ(0, fixtureWriteFile("/tmp/first", "abc"));
    fixtureWriteFile("/tmp/second", "def");
    EXPECT_EQ("de", contentOf(Sandbox::realPath("/tmp/second")));
    EXPECT_EQ(ENOSPC, fixtureWriteFile("/tmp/third", "g"));
    makeFile(scratch() + "/own", "the room is the library's alone");
    EXPECT_EQ("the room is the library's alone", contentOf(scratch() + "/own"));
    Sandbox::setRoom(std::nullopt);
    EXPECT_EQ(0, fixtureWriteFile("/tmp/third", "g"));
}

TEST_F(SandboxTest, EachFailurePointFails)
{
    ASSERT_TRUE(Sandbox::fail("write", ENOSPC, 1));
    EXPECT_EQ(ENOSPC, fixtureWriteFile("/tmp/file", "x"));
    EXPECT_EQ(0, fixtureWriteFile("/tmp/file", "x"));
    ASSERT_TRUE(Sandbox::fail("fopen", EACCES, 1));
    EXPECT_EQ(-1, fixtureReadLine("/tmp/file", m_Line.data(), m_Line.size()));
    EXPECT_EQ(0, fixtureReadLine("/tmp/file", m_Line.data(), m_Line.size()));
    ASSERT_TRUE(Sandbox::fail("statvfs", EIO, 1));
    EXPECT_EQ(-1, fixtureFreeSpace("/tmp"));
    ASSERT_TRUE(Sandbox::fail("pthread_create", EAGAIN, 1));
    EXPECT_EQ(EAGAIN, fixtureRunThread());
    EXPECT_EQ(0, fixtureRunThread());
    ASSERT_TRUE(Sandbox::fail("malloc", ENOMEM, 1));
    EXPECT_FALSE(fixtureNew(100));
    EXPECT_TRUE(fixtureNew(100));
    EXPECT_FALSE(Sandbox::fail("close", EIO, 1));
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST_F(SandboxTest, MallocFailsWhereNoSanitizerOwnsIt)
{
    ASSERT_TRUE(Sandbox::fail("malloc", ENOMEM, 1));
    EXPECT_FALSE(fixtureMalloc(100));
    EXPECT_TRUE(fixtureMalloc(100));
}
#endif

TEST_F(SandboxTest, FreeSpaceIsAsTold)
{
    EXPECT_GT(fixtureFreeSpace("/tmp"), 0);
    Sandbox::setFreeSpace(12345);
    EXPECT_EQ(12345, fixtureFreeSpace("/tmp"));
    struct statvfs own;
    ASSERT_EQ(0, statvfs("/tmp", &own));
    EXPECT_NE(12345u, own.f_frsize * own.f_bfree);
}

TEST_F(SandboxTest, WithTheExecutableAsLibraryItsOwnCallsAreRedirected)
{
    Sandbox::setLibraryAddress(reinterpret_cast<const void*>(&contentOf));
    EXPECT_EQ("", contentOf("/etc/passwd"));
    makeFile("/srv/file", "ours");
    EXPECT_EQ("ours", contentOf("/srv/file"));
    EXPECT_EQ(0, access("/srv/file", F_OK));
    Sandbox::setLibraryAddress(reinterpret_cast<const void*>(&fixtureSystem));
    EXPECT_EQ(-1, access("/srv/file", F_OK));
}

/// Runs this program once more, a process of its own with a directory of its own: its exit code, none where the kernel
/// does not know programs of this architecture, as under an emulator.
std::optional<int> runItself(const char* option, const std::string& argument)
{
    constexpr int kNotOfThisMachine = 126;
    const pid_t child = fork();
    if (child == 0) {
        execl("/proc/self/exe", "sandbox_test", option, argument.c_str(), static_cast<char*>(nullptr));
        _exit(errno == ENOEXEC ? kNotOfThisMachine : 1);
    }
    int status = 0;
    EXPECT_EQ(child, waitpid(child, &status, 0));
    EXPECT_TRUE(WIFEXITED(status));
    return WEXITSTATUS(status) == kNotOfThisMachine ? std::nullopt : std::optional(WEXITSTATUS(status));
}

TEST_F(SandboxTest, PrivateDirectoryGoesAtExit)
{
    const std::string note = scratch() + "/note";
    const std::optional<int> code = runItself("--directory-note", note);
    if (!code) {
        GTEST_SKIP() << "a program under an emulator cannot run itself";
    }
    ASSERT_EQ(0, *code);
    const std::string directory = contentOf(note);
    EXPECT_EQ('/', directory.at(0));
    EXPECT_NE(Sandbox::directory(), directory);
    EXPECT_FALSE(fs::exists(directory));
}

TEST_F(SandboxTest, GivenDirectoryStays)
{
    const std::string given = scratch() + "/given";
    makeFile(given + "/etc/there", "before\n");
    const std::optional<int> code = runItself("--use-directory", given);
    if (!code) {
        GTEST_SKIP() << "a program under an emulator cannot run itself";
    }
    EXPECT_EQ(0, *code);
    EXPECT_EQ("left", contentOf(given + "/etc/new/file"));
}

int main(int argc, char** argv)
{
    if (argc == 3 && std::string(argv[1]) == "--directory-note") {
        Sandbox::setLibraryAddress(reinterpret_cast<const void*>(&fixtureSystem));
        std::ofstream(argv[2]) << Sandbox::directory();
        return fs::exists(Sandbox::directory()) ? 0 : 1;
    }
    if (argc == 3 && std::string(argv[1]) == "--use-directory") {
        Sandbox::setLibraryAddress(reinterpret_cast<const void*>(&fixtureSystem));
        Sandbox::useDirectory(std::string(argv[2]) + "/");
        std::array<char, 16> line{};
        const bool isRead = fixtureReadLine("/etc/there", line.data(), line.size()) == 0;
        return isRead && fixtureWriteFile("/etc/new/file", "left") == 0 ? 0 : 1;
    }
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
