// SPDX-License-Identifier: MIT
#include "publishing/joined/JoinedWriter.h"

#include "publishing/joined/JoinedTrailer.h"

namespace tarsel::joined {

namespace {

constexpr std::string_view lineEnd = "\r\n";

std::string field(std::string_view text) {
    return std::string(text) + ';';
}

std::string field(std::uint64_t number) {
    return field(std::to_string(number));
}

std::string listedName(std::string_view name) {
    if (name == optionsName) // which would end the list
        return std::string(name) + ' ';
    std::string listed(name);
    for (char& character : listed) {
        if (character == ';')
            character = ',';
        if (character == '\r' || character == '\n')
            character = ' ';
    }
    return listed;
}

} // namespace

void JoinedWriter::write(std::string_view bytes) {
    m_sink(bytes);
    m_size += bytes.size();
}

void JoinedWriter::writeBlock(std::string_view bytes) {
    write(bytes);
    write(std::string_view("\0", 1));
}

void JoinedWriter::player(std::string_view program) {
    writeBlock(program);
}

void JoinedWriter::player(const std::function<std::string_view()>& next) {
    for (std::string_view piece = next(); !piece.empty(); piece = next())
        write(piece);
    writeBlock({});
}

void JoinedWriter::picture(std::string_view name, std::string_view jpeg) {
    m_list += field(listedName(name)) + field(m_size) + field(jpeg.size()) += lineEnd;
    writeBlock(jpeg);
}

bool JoinedWriter::finish(std::string_view options) {
    std::string position = std::to_string(m_size + options.size());
    if (position.size() > positionDigits)
        return false;
    position.resize(positionDigits, ' ');
    m_list += field(optionsName) + field(m_size) += lineEnd;
    write(options);
    writeBlock(m_list);
    write(trailerHeader);
    writeBlock(position);
    return true;
}

} // namespace tarsel::joined
