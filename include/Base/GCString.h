// gcstring: the string type of the GenICam interfaces. A thin value class over
// std::string that also converts to const char*, as the reference type does.
#ifndef GENICAM_GCSTRING_H
#define GENICAM_GCSTRING_H

#include <cstddef>
#include <iosfwd>
#include <string>

#include <Base/GCNamespace.h>

namespace GenICam_3_0 {

class gcstring {
public:
  static const size_t _npos = static_cast<size_t>(-1);
  static size_t npos() { return _npos; }

  gcstring() = default;
  gcstring(const char* psz) : m_str(psz ? psz : "") {}
  gcstring(const char* psz, size_t n) : m_str(psz ? std::string(psz, n) : std::string()) {}
  gcstring(size_t count, char ch) : m_str(count, ch) {}
  gcstring(const std::string& s) : m_str(s) {}
  gcstring(std::string&& s) : m_str(std::move(s)) {}
  gcstring(const gcstring&) = default;
  gcstring(gcstring&&) noexcept = default;
  gcstring& operator=(const gcstring&) = default;
  gcstring& operator=(gcstring&&) noexcept = default;
  gcstring& operator=(const char* psz) { m_str = psz ? psz : ""; return *this; }
  gcstring& operator=(const std::string& s) { m_str = s; return *this; }
  virtual ~gcstring() = default;

  const char* c_str() const { return m_str.c_str(); }
  size_t size() const { return m_str.size(); }
  size_t length() const { return m_str.size(); }
  bool empty() const { return m_str.empty(); }
  void clear() { m_str.clear(); }
  void resize(size_t n) { m_str.resize(n); }
  size_t max_size() const { return m_str.max_size(); }

  gcstring& append(const gcstring& s) { m_str += s.m_str; return *this; }
  gcstring& append(size_t count, char ch) { m_str.append(count, ch); return *this; }
  gcstring& assign(const gcstring& s) { m_str = s.m_str; return *this; }
  gcstring& assign(const char* psz, size_t n) { m_str.assign(psz, n); return *this; }
  gcstring& operator+=(const gcstring& s) { m_str += s.m_str; return *this; }
  gcstring& operator+=(const char* psz) { if (psz) m_str += psz; return *this; }
  gcstring& operator+=(char ch) { m_str += ch; return *this; }

  int compare(const gcstring& s) const { return m_str.compare(s.m_str); }
  size_t find(char ch, size_t off = 0) const { return m_str.find(ch, off); }
  size_t find(const gcstring& s, size_t off = 0) const { return m_str.find(s.m_str, off); }
  size_t find(const char* psz, size_t off, size_t n) const { return m_str.find(psz, off, n); }
  size_t rfind(char ch, size_t off = _npos) const { return m_str.rfind(ch, off); }
  size_t rfind(const gcstring& s, size_t off = _npos) const { return m_str.rfind(s.m_str, off); }
  size_t find_first_of(const gcstring& s, size_t off = 0) const { return m_str.find_first_of(s.m_str, off); }
  size_t find_first_not_of(const gcstring& s, size_t off = 0) const { return m_str.find_first_not_of(s.m_str, off); }
  size_t find_last_of(const gcstring& s, size_t off = _npos) const { return m_str.find_last_of(s.m_str, off); }
  size_t find_last_not_of(const gcstring& s, size_t off = _npos) const { return m_str.find_last_not_of(s.m_str, off); }
  gcstring substr(size_t off = 0, size_t count = _npos) const { return gcstring(m_str.substr(off, count)); }

  char& operator[](size_t i) { return m_str[i]; }
  const char& operator[](size_t i) const { return m_str[i]; }

  operator const char*() const { return m_str.c_str(); }
  operator const std::string&() const { return m_str; }
  const std::string& str() const { return m_str; }

  bool operator==(const gcstring& s) const { return m_str == s.m_str; }
  bool operator!=(const gcstring& s) const { return m_str != s.m_str; }
  bool operator<(const gcstring& s) const { return m_str < s.m_str; }
  bool operator>(const gcstring& s) const { return m_str > s.m_str; }
  bool operator<=(const gcstring& s) const { return m_str <= s.m_str; }
  bool operator>=(const gcstring& s) const { return m_str >= s.m_str; }
  bool operator==(const char* psz) const { return m_str == (psz ? psz : ""); }
  bool operator!=(const char* psz) const { return !(*this == psz); }

private:
  std::string m_str;
};

inline gcstring operator+(const gcstring& a, const gcstring& b) { gcstring r(a); r += b; return r; }
inline gcstring operator+(const gcstring& a, const char* b) { gcstring r(a); r += b; return r; }
inline gcstring operator+(const char* a, const gcstring& b) { gcstring r(a); r += b; return r; }
inline bool operator==(const char* a, const gcstring& b) { return b == a; }
inline bool operator!=(const char* a, const gcstring& b) { return b != a; }

std::ostream& operator<<(std::ostream& os, const gcstring& s);
std::istream& operator>>(std::istream& is, gcstring& s);

}  // namespace GenICam_3_0

#endif
