#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

// Where requests come from and replies go: one line each, without the line break.
class Channel {
  public:
    enum class State {
        line,       // a request
        tooLong,    // a line beyond maxLine bytes; it was dropped whole
        nothingYet, // none for now: whoever feeds the channel wakes the toolkit later
        ended       // none will come any more
    };
    static constexpr std::size_t maxLine = 4u << 20;

    virtual ~Channel() = default;
    virtual State next(std::string& line) = 0;
    // False when nobody reads the replies any more.
    virtual bool send(std::string_view line) = 0;
};

// Cuts a stream of bytes into lines. A last line without a line break counts once the stream is closed; a
// carriage return before the line break is dropped.
class LineSplitter {
  public:
    explicit LineSplitter(std::size_t limit = Channel::maxLine) : m_limit(limit) {}
    void feed(std::string_view bytes);
    void close();
    // line, tooLong, nothingYet, or ended when closed and everything was taken.
    Channel::State take(std::string& line);

  private:
    void finishLine();
    struct Line {
        std::string text;
        bool tooLong = false;
    };
    std::size_t m_limit;
    std::deque<Line> m_lines;
    Line m_open;
    bool m_closed = false;
};

// Two file descriptors, not owned. next() blocks until a line is there.
class PipeChannel : public Channel {
  public:
    PipeChannel(int in, int out) : m_in(in), m_out(out) {}
    State next(std::string& line) override;
    bool send(std::string_view line) override;

  protected:
    // Reads what is there (or blocks for it) and feeds the splitter; false at the end of input.
    bool readSome();
    LineSplitter m_lines;
    int m_in;

  private:
    int m_out;
};
