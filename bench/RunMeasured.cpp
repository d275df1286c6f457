// Runs a program and reports what it cost: "STATUS SECONDS PEAK_BYTES" in the
// file REPORT, the exit status, the user and system processor time and the
// largest resident set of the program alone. A process keeps the largest
// resident set of whatever it was before its exec, which for a child of the
// benchmark is the benchmark's own; started from this small program, the
// measured child starts from almost nothing.

#include <cstdio>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s REPORT PROGRAM [ARGUMENTS]\n", argv[0]);
        return 1;
    }
    const pid_t child = ::fork();
    if (child < 0)
        return 1;
    if (child == 0) {
        const int quiet = ::open("/dev/null", O_WRONLY);
        if (quiet >= 0)
            ::dup2(quiet, 1);
        ::execv(argv[2], argv + 2);
        ::_exit(127);
    }
    int status = 0;
    struct rusage usage;
    if (::wait4(child, &status, 0, &usage) != child)
        return 1;
    std::FILE* report = std::fopen(argv[1], "w");
    if (!report)
        return 1;
    const double seconds = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                           1e-6 * static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec);
    std::fprintf(report, "%d %.6f %ld\n", WIFEXITED(status) ? WEXITSTATUS(status) : -1, seconds,
                 usage.ru_maxrss * 1024L);
    return std::fclose(report) == 0 ? 0 : 1;
}
