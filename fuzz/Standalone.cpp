// Runs a fuzz driver without libFuzzer: every stored input, then seeded mutations of them for some seconds. The
// input at work is kept in a file beside the program, so that a crash leaves it behind.

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

// Pieces that mean something to the readers.
constexpr std::array kPieces = {"  0\nSECTION\n",
                                "  0\nENDSEC\n",
                                "  0\nEOF\n",
                                "  0\nTABLE\n",
                                "  0\nENDTAB\n",
                                "  0\nBLOCK\n",
                                "  0\nENDBLK\n",
                                "  0\nSEQEND\n",
                                "  2\nHEADER\n",
                                "  2\nTABLES\n",
                                "  2\nBLOCKS\n",
                                "  9\n$LUNITS\n",
                                "  5\nFFFFFFFFFFFFFFFF\n",
                                "  5\n0\n",
                                "1001\nACAD\n",
                                "102\n{X\n",
                                "101\nEmbedded Object\n",
                                "999\n",
                                "-5\n",
                                "70\n99999999999\n",
                                "\\U+D800",
                                "\\M+1",
                                "^J",
                                "\r",
                                "\xEF\xBB\xBF"};

class Mutator {
  public:
    Mutator(std::vector<std::string> corpus, unsigned seed) : m_corpus(std::move(corpus)), m_random(seed) {}

    std::string next() {
        std::string out = m_corpus[below(m_corpus.size())];
        for (std::size_t n = 1 + below(6); n > 0; --n)
            mutate(out);
        if (out.size() > 65536) out.resize(65536);
        return out;
    }

  private:
    std::size_t below(std::size_t limit) { return limit == 0 ? 0 : m_random() % limit; }

    void mutate(std::string& out) {
        const std::size_t at = below(out.size() + 1);
        switch (below(7)) {
        case 0:
            if (at < out.size()) out[at] = static_cast<char>(m_random());
            break;
        case 1:
            out.erase(at, below(16));
            break;
        case 2:
            out.insert(at, kPieces[below(kPieces.size())]);
            break;
        case 3:
            out.resize(at);
            break;
        case 4: {
            const std::string part = out.substr(at, below(200));
            out.insert(below(out.size() + 1), part);
            break;
        }
        case 5: {
            const std::string& other = m_corpus[below(m_corpus.size())];
            const std::size_t from = below(other.size());
            out.insert(at, other.substr(from, below(400)));
            break;
        }
        default: {
            // A whole line goes or comes twice: keeps the rest readable.
            const std::size_t start = out.rfind('\n', at) + 1;
            const std::size_t end = std::min(out.find('\n', start), out.size() - 1) + 1;
            if (below(2))
                out.erase(start, end - start);
            else
                out.insert(start, out.substr(start, end - start));
        }
        }
    }

    std::vector<std::string> m_corpus;
    std::mt19937 m_random;
};

void run(const std::string& input) {
    std::ofstream("fuzz_last_input", std::ios::binary) << input;
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s <folder or file> [seconds [seed]]\n", argv[0]);
        return 2;
    }
    std::vector<std::filesystem::path> files;
    if (std::filesystem::is_directory(argv[1]))
        for (const auto& entry : std::filesystem::directory_iterator(argv[1]))
            files.push_back(entry.path());
    else
        files.emplace_back(argv[1]);
    std::sort(files.begin(), files.end());
    std::vector<std::string> corpus;
    for (const auto& file : files) {
        std::ifstream in(file, std::ios::binary);
        corpus.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
        run(corpus.back());
    }
    if (corpus.empty()) {
        std::fprintf(stderr, "no inputs in %s\n", argv[1]);
        return 2;
    }
    const std::chrono::seconds time(argc > 2 ? std::atoi(argv[2]) : 0);
    const unsigned seed = argc > 3 ? static_cast<unsigned>(std::atoi(argv[3])) : std::random_device()();
    Mutator mutator(corpus, seed);
    std::uint64_t count = 0;
    for (const auto end = std::chrono::steady_clock::now() + time; std::chrono::steady_clock::now() < end;
         ++count)
        run(mutator.next());
    std::printf("%zu stored inputs, %llu mutations, seed %u: quiet\n", corpus.size(),
                static_cast<unsigned long long>(count), seed);
    std::filesystem::remove("fuzz_last_input");
    return 0;
}
