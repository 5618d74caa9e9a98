#include <chrono>
#include <cstdio>
#include <iostream>
#include <string>

#include "mib/collection.h"
#include "mib/image_writer.h"
#include "mib/lookup.h"
#include "mib/sources.h"
using namespace sentrel::mib;
int main(int argc, char** argv) {
  std::string cmd = argv[1];
  if (cmd == "compile") {
    std::vector<Folder> f;
    for (int i = 3; i < argc; ++i) f.push_back({argv[i], true});
    auto t0 = std::chrono::steady_clock::now();
    auto lap = [&](const char* w) {
      auto t = std::chrono::steady_clock::now();
      fprintf(stderr, "%s %.1f ms\n", w, std::chrono::duration<double, std::milli>(t - t0).count());
      t0 = t;
    };
    auto s = FindSources(f);
    lap("scan");
    Collection c(s.files, {});
    lap("parse");
    auto base = Image::Empty();
    auto cat = c.Compile(*base);
    lap("resolve");
    auto img = MakeImage(cat, s.fingerprint);
    lap("make");
    WriteWhole(argv[2], img);
    lap("write");
    for (auto& m : c.AllMessages()) std::cout << m.ToText() << "\n";
    fprintf(stderr, "%zu modules %zu entries %zu nodes %zu types, %zu bytes, %zu messages\n", c.ModuleCount(),
            cat.entries.size(), cat.tree.Nodes().size(), cat.types.size(), img.size(), c.AllMessages().size());
  } else {
    auto t0 = std::chrono::steady_clock::now();
    auto img = Image::Open(argv[2]);
    fprintf(stderr, "open %.2f ms\n", std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count());
    std::ios::sync_with_stdio(false);
    std::string l;
    auto one = [&](const std::string& o) {
      auto r = LookUp(*img, o);
      std::cout << o << '\t' << r.name << '\t' << ListOf(*img, *r.type) << '\n';
    };
    if (argc > 3) for (int i = 3; i < argc; ++i) one(argv[i]);
    else while (std::getline(std::cin, l)) one(l);
  }
}
