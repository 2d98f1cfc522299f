#include "tavocad/automation/Channel.h"

#include <array>
#include <cerrno>
#include <unistd.h>
#include <utility>

void LineSplitter::feed(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        const std::string_view part = bytes.substr(0, end);
        if (m_open.text.size() + part.size() > m_limit) {
            m_open.tooLong = true;
            m_open.text.clear();
        } else if (!m_open.tooLong) {
            m_open.text += part;
        }
        if (end == std::string_view::npos) return;
        finishLine();
        bytes.remove_prefix(end + 1);
    }
}

void LineSplitter::finishLine() {
    if (!m_open.text.empty() && m_open.text.back() == '\r') m_open.text.pop_back();
    m_lines.push_back(std::exchange(m_open, {}));
}

void LineSplitter::close() {
    if (!m_closed && (m_open.tooLong || !m_open.text.empty())) finishLine();
    m_closed = true;
}

Channel::State LineSplitter::take(std::string& line) {
    if (m_lines.empty()) return m_closed ? Channel::State::ended : Channel::State::nothingYet;
    const bool tooLong = m_lines.front().tooLong;
    line = std::move(m_lines.front().text);
    m_lines.pop_front();
    return tooLong ? Channel::State::tooLong : Channel::State::line;
}

bool PipeChannel::readSome() {
    std::array<char, 65536> buffer;
    ssize_t count = 0;
    do
        count = ::read(m_in, buffer.data(), buffer.size());
    while (count < 0 && errno == EINTR);
    if (count <= 0) {
        m_lines.close();
        return false;
    }
    m_lines.feed({buffer.data(), static_cast<std::size_t>(count)});
    return true;
}

Channel::State PipeChannel::next(std::string& line) {
    State state = m_lines.take(line);
    while (state == State::nothingYet) {
        readSome();
        state = m_lines.take(line);
    }
    return state;
}

bool PipeChannel::send(std::string_view line) {
    std::string bytes(line);
    bytes += '\n';
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const ssize_t count = ::write(m_out, rest.data(), rest.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        rest.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}
