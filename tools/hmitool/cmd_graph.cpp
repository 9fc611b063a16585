// hmitool graph PRINTER MEDIA_ID: the medium's option cascade, as show walks it through the exports,
// drawn as a Graphviz digraph: one node per node reached (a node that serves several values, such as
// an "all" node, once, with an edge from each value), one rank per level, edges labelled with the
// value asked: dashed when an "all" node serves it, bold for the level's default, into a grey "no
// branch" node when nothing does. --svg FILE renders it with Graphviz's dot; --json gives the nodes
// and edges instead: {"medium", "nodes": [{"id", "kind", "name", "level", "branch"}],
// "edges": [{"from", "to", "value", "all", "default"}]}.
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <tuple>
#include <vector>


#include "cascade_walk.h"
#include "command.h"
#include "json_output.h"
#include "media_source.h"
#include "program_pipe.h"

namespace hmitool {
namespace {

const int kLevels = 5;  // the medium, then the four levels of Branch

struct GraphNode {
    std::string kind;
    std::string name;
    int level;
    bool branch;  // false: a value served by nothing
};

struct GraphEdge {
    size_t from, to;
    std::string value;
    bool all, isDefault;
};

// The nodes and edges reached; each node once, below which the walk goes only the first time.
class GraphBuilder final : public CascadeVisitor {
public:
    explicit GraphBuilder(const std::string& mediaId) { nodes_.push_back({"medium", mediaId, 0, true}); }

    bool Enter(const Branch& branch) override {
        size_t to = 0;
        bool first = false;
        if (branch.marks.noBranch) {
            to = Add({branch.kind, "no branch", branch.level, false});
        } else {
            const NodeKey key{branch.kind, branch.node, branch.nodeName};
            const auto found = ids_.find(key);
            first = found == ids_.end();
            to = first ? ids_[key] = Add({branch.kind, branch.nodeName, branch.level, true}) : found->second;
        }
        edges_.push_back({path_.back(), to, branch.value, branch.marks.all, branch.marks.isDefault});
        path_.push_back(to);
        return first;
    }
    void Leave() override { path_.pop_back(); }

    const std::vector<GraphNode>& nodes() const { return nodes_; }
    const std::vector<GraphEdge>& edges() const { return edges_; }

private:
    using NodeKey = std::tuple<std::string, const void*, std::string>;

    size_t Add(const GraphNode& node) {
        nodes_.push_back(node);
        return nodes_.size() - 1;
    }

    std::vector<GraphNode> nodes_;
    std::vector<GraphEdge> edges_;
    std::map<NodeKey, size_t> ids_;
    std::vector<size_t> path_{0};
};

// A DOT string: quoted, with quotes and backslashes escaped and line breaks as \n.
std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        if (c == '\n') quoted += "\\n";
        else quoted += c;
    }
    return quoted + "\"";
}

std::string NodeId(size_t index) { return Quoted("n" + std::to_string(index)); }

std::string Dot(const GraphBuilder& graph) {
    std::string dot = "digraph cascade {\n  rankdir=LR;\n  node [shape=box];\n";
    const std::vector<GraphNode>& nodes = graph.nodes();
    for (size_t i = 0; i < nodes.size(); ++i) {
        const GraphNode& node = nodes[i];
        dot += "  " + NodeId(i) + " [label=" + Quoted(node.kind + "\n" + node.name) +
               (node.branch ? "" : ", color=grey, fontcolor=grey, style=dashed") + "];\n";
    }
    for (int level = 0; level < kLevels; ++level) {
        std::string members;
        for (size_t i = 0; i < nodes.size(); ++i) {
            if (nodes[i].level == level) members += " " + NodeId(i) + ";";
        }
        if (!members.empty()) dot += "  { rank=same;" + members + " }\n";
    }
    for (const GraphEdge& edge : graph.edges()) {
        std::string style = edge.all ? "dashed" : "solid";
        if (edge.isDefault) style += ",bold";
        const bool branch = nodes[edge.to].branch;
        const std::string label =
            edge.value + (edge.isDefault ? " (default)" : "") + (edge.all ? "\nvia all" : "");
        dot += "  " + NodeId(edge.from) + " -> " + NodeId(edge.to) + " [label=" + Quoted(label) +
               ", style=" + Quoted(style) + (branch ? "" : ", color=grey, fontcolor=grey") + "];\n";
    }
    return dot + "}\n";
}

Json GraphJson(const GraphBuilder& graph, const std::string& mediaId) {
    Json nodes = Json::array(), edges = Json::array();
    for (size_t i = 0; i < graph.nodes().size(); ++i) {
        const GraphNode& node = graph.nodes()[i];
        nodes.push_back({{"id", "n" + std::to_string(i)},
                         {"kind", node.kind},
                         {"name", node.name},
                         {"level", node.level},
                         {"branch", node.branch}});
    }
    for (const GraphEdge& edge : graph.edges()) {
        edges.push_back({{"from", "n" + std::to_string(edge.from)},
                         {"to", "n" + std::to_string(edge.to)},
                         {"value", edge.value},
                         {"all", edge.all},
                         {"default", edge.isDefault}});
    }
    return {{"medium", mediaId}, {"nodes", nodes}, {"edges", edges}};
}

int RenderSvg(const std::string& dotText, const std::string& file) {
    const std::string dot = FindOnPath("dot");
    if (dot.empty()) {
        std::fputs("hmitool: --svg needs Graphviz's dot: install it (apt-get install graphviz; on Windows "
                   "https://graphviz.org/download/)\n",
                   stderr);
        return kUnreadable;
    }
    const int status = RunWithInput(dot, {"-Tsvg", "-o", file}, dotText);
    if (status == -1) {
        std::fprintf(stderr, "hmitool: cannot run %s\n", dot.c_str());
        return kUnreadable;
    }
    if (status != 0) {
        std::fprintf(stderr, "hmitool: %s failed with status %d\n", dot.c_str(), status);
        return kUnreadable;
    }
    return kOk;
}

int RunGraph(const std::vector<std::string>& args, const Options& options) {
    const std::unique_ptr<MediaSource> source = OpenMediaSource(args[0], options);
    if (!source) return kUnreadable;
    int code = kOk;
    const Detail detail = LoadMedium(*source, args[1], &code);
    if (!detail) return code;
    GraphBuilder graph(args[1]);
    WalkCascade(source->access(), detail.get(), graph);
    const std::string dot = Dot(graph);
    if (options.json) PrintJson(GraphJson(graph, args[1]));
    if (!options.svgFile.empty()) return RenderSvg(dot, options.svgFile);
    if (!options.json) std::fputs(dot.c_str(), stdout);
    return kOk;
}

}  // namespace

HMITOOL_COMMAND("graph", "PRINTER MEDIA_ID",
                "a medium's option cascade as a Graphviz digraph: \"all\" branches dashed, defaults bold, values "
                "without a branch grey; --svg FILE renders it with dot",
                "graph --svg TransparencyFilm.svg samples/sample-printer.reg TransparencyFilm", RunGraph,
                kFromFilesOption | kSvgOption);

}  // namespace hmitool
