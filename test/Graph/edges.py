"""Prints edges of the flow graph, a line each: "LINE VERB -> LINE VERB: KIND", in the order of the text.

    tarka cfg --format=json FILE | edges.py KIND...
"""

import json
import sys


def main():
    kinds = sys.argv[1:]
    for function in json.load(sys.stdin)["functions"]:
        nodes = {node["id"]: node for node in function["nodes"]}

        def name(number):
            node = nodes[number]
            verb = node.get("verb") or node["kind"]
            place = node.get("line") or ""
            return f"{place} {verb}".strip() + (" end" if node["kind"] == "procedure end" else "")

        for edge in sorted(function["edges"], key=lambda e: (e["from"], e["to"])):
            if edge["kind"] in kinds:
                print(f"{name(edge['from'])} -> {name(edge['to'])}: {edge['kind']}")


main()
