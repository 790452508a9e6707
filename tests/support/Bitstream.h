// Builds feature bitstreams for tests, whole or damaged.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

inline void putField(std::string& bytes, std::size_t offset, std::uint32_t value) {
  if (bytes.size() < offset + sizeof value) bytes.resize(offset + sizeof value, '\xEE');
  std::memcpy(bytes.data() + offset, &value, sizeof value);
}

/// The 184 bytes before the first frame; reserved bytes are 0xEE.
inline std::string bitstreamHeader(std::uint32_t version, std::uint32_t frameCount) {
  std::string bytes(184, '\xEE');
  putField(bytes, 4, version);
  putField(bytes, 64, frameCount);
  return bytes;
}

/// A frame's 32-byte header, announcing a feature of `featureLength` bytes.
inline std::string frameHeader(std::uint32_t featureLength) {
  std::string bytes(32, '\xEE');
  putField(bytes, 24, featureLength);
  return bytes;
}

inline std::string frame(const std::string& feature) {
  return frameHeader(static_cast<std::uint32_t>(feature.size())) + feature;
}
