// Linux only: loading a ~50 KB media-information document through the DOM substitute's loadXML
// against a bare libxml2 parse of the same document, with the ratio of the two.
#include <benchmark/benchmark.h>
#include <libxml/parser.h>

#include <cstdio>
#include <map>
#include <string>

#include "platform/platform.h"

namespace {

// A <medium> document in no namespace with the nesting of a real one, grown to about 50 KB.
std::string MediumDocument() {
    const char* modes[] = {"color", "monochrome"};
    const char* borderless[] = {"on", "off"};
    const char* purposes[] = {"photo", "document", "graphics", "all"};
    const char* qualities[] = {"printquality_rgb", "printquality_cmyk4d", "printquality_cmyk1d", "printquality_index"};
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<medium id=\"glossy_photo_pro\">\n";
    for (int round = 0; xml.size() < 50 * 1024; ++round) {
        for (const char* mode : modes) {
            xml += "  <printcolormode type=\"" + std::string(mode) + "\">\n";
            for (const char* edge : borderless) {
                xml += "    <borderlessprint type=\"" + std::string(edge) + "\">\n";
                for (const char* purpose : purposes) {
                    xml += "      <print_purpose type=\"" + std::string(purpose) + "\">\n";
                    for (const char* quality : qualities) {
                        xml += "        <" + std::string(quality) + " type=\"high\">\n";
                        xml += "          <resolution default=\"600\">300,600,1200</resolution>\n";
                        xml += "          <passes>" + std::to_string(round % 8 + 1) + "</passes>\n";
                        xml += "          <inkdensity>" + std::to_string(90 + round % 10) + "</inkdensity>\n";
                        xml += "        </" + std::string(quality) + ">\n";
                    }
                    xml += "      </print_purpose>\n";
                }
                xml += "    </borderlessprint>\n";
            }
            xml += "  </printcolormode>\n";
        }
    }
    return xml + "</medium>\n";
}

const std::string& Document() {
    static const std::string document = MediumDocument();
    return document;
}

void SubstituteLoadXml(benchmark::State& state) {
    CoInitialize(nullptr);
    std::u16string wide(Document().begin(), Document().end());
    BSTR text = SysAllocString(wide.c_str());
    IXMLDOMDocument2* doc = nullptr;
    CoCreateInstance(HMI_CLSID_DOMDocument60, nullptr, CLSCTX_INPROC_SERVER, HMI_IID_IXMLDOMDocument2,
                     reinterpret_cast<void**>(&doc));
    doc->put_async(VARIANT_FALSE);
    for (auto _ : state) {
        VARIANT_BOOL loaded = VARIANT_FALSE;
        doc->loadXML(text, &loaded);
        if (loaded != VARIANT_TRUE) state.SkipWithError("load failed");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(Document().size()));
    doc->Release();
    SysFreeString(text);
    CoUninitialize();
}
BENCHMARK(SubstituteLoadXml);

void BareLibxml2Parse(benchmark::State& state) {
    const std::string& utf8 = Document();
    for (auto _ : state) {
        xmlDocPtr doc = xmlReadMemory(utf8.data(), static_cast<int>(utf8.size()), nullptr, "UTF-8",
                                      XML_PARSE_NONET | XML_PARSE_IGNORE_ENC);
        if (!doc) state.SkipWithError("parse failed");
        xmlFreeDoc(doc);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(utf8.size()));
}
BENCHMARK(BareLibxml2Parse);

// Console output as usual, plus the time per iteration of each run for the ratio.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            if (!run.error_occurred) seconds_[run.benchmark_name()] = run.GetAdjustedRealTime();
        ConsoleReporter::ReportRuns(runs);
    }
    void PrintRatio() const {
        auto substitute = seconds_.find("SubstituteLoadXml"), bare = seconds_.find("BareLibxml2Parse");
        if (substitute == seconds_.end() || bare == seconds_.end() || bare->second <= 0) return;
        std::printf("document %zu bytes; substitute / bare libxml2 = %.2f (goal: at most 1.5)\n", Document().size(),
                    substitute->second / bare->second);
    }

private:
    std::map<std::string, double> seconds_;
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio();
    benchmark::Shutdown();
    return 0;
}
