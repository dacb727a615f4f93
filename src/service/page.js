"use strict";
const $ = (id) => document.getElementById(id);
const kMostTrees = 20;
const kMostLinks = 5;

async function ask(path, request) {
  const answer = await fetch(path, {
    method: "POST",
    headers: { "Content-Type": "application/json" },
    body: JSON.stringify(request),
  });
  const result = await answer.json();
  if (!answer.ok) throw new Error(result.error);
  return result;
}

function element(name, text, kind) {
  const made = document.createElement(name);
  if (text !== undefined) made.textContent = text;
  if (kind) made.className = kind;
  return made;
}

function download(name, type, text) {
  const link = document.createElement("a");
  link.href = URL.createObjectURL(new Blob([text], { type }));
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 1000);
}

// A sentence with its next-best trees, and the reasons for its heads.
class Card {
  constructor(sentence, style) {
    this.trees = [sentence];
    this.at = 0;
    this.style = style;
    this.root = $("card").content.firstElementChild.cloneNode(true);
    this.part(".before").onclick = () => this.step(-1);
    this.part(".after").onclick = () => this.step(1);
    this.part(".svg").onclick = () => download(`tree-${sentence.id}.svg`, "image/svg+xml", this.tree.svg);
    this.show();
  }

  part(selector) { return this.root.querySelector(selector); }
  get tree() { return this.trees[this.at]; }

  show() {
    const tree = this.tree;
    const drawing = this.part(".drawing");
    // The service makes the drawing and escapes what is written in it.
    drawing.innerHTML = tree.svg;
    drawing.querySelectorAll(".word").forEach((word, i) => {
      word.setAttribute("tabindex", "0");
      word.setAttribute("role", "button");
      word.onclick = () => this.choose(i + 1);
      word.onkeydown = (event) => {
        if (event.key !== "Enter" && event.key !== " ") return;
        event.preventDefault();
        this.choose(i + 1);
      };
    });
    const cost = tree.cost === undefined ? "" : `, cost ${tree.cost}`;
    this.part(".rank").textContent = (this.at === 0 ? "best tree" : `tree ${this.at + 1}`) + cost;
    const notes = [];
    if (tree.parts > 1) notes.push(`${tree.parts} parts`);
    if (tree.cut) notes.push(`cut: ${tree.cut}`);
    this.part(".note").textContent = notes.join(", ");
    this.part(".before").disabled = this.at === 0;
    this.part(".after").disabled = this.asked && this.at === this.trees.length - 1;
    this.modifier = 0;
    this.part(".why").hidden = true;
  }

  async step(by) {
    if (by > 0 && !this.asked) {
      this.asked = true;
      try {
        const request = { text: this.tree.text, from: "lines", style: this.style, best: kMostTrees, drawing: true };
        this.trees = (await ask("/parse", request)).sentences;
      } catch (fault) { this.tell(fault); }
    }
    this.at = Math.max(0, Math.min(this.at + by, this.trees.length - 1));
    this.show();
  }

  mark(number, kind) {
    this.root.querySelectorAll(".word")[number - 1].classList.add(kind);
  }

  async choose(number) {
    if (!this.modifier || this.modifier === number) {
      const again = this.modifier === number;
      this.root.querySelectorAll(".word").forEach((word) => word.classList.remove("modifier", "head"));
      this.modifier = again ? 0 : number;
      if (!again) this.mark(number, "modifier");
      return;
    }
    const modifier = this.modifier;
    this.modifier = 0;
    this.mark(number, "head");
    try {
      this.explain(await ask("/why", { text: this.tree.text, style: this.style, modifier, head: number }));
    } catch (fault) { this.tell(fault); }
  }

  tell(fault) {
    const place = this.part(".why");
    place.replaceChildren(element("span", fault.message, "fault"));
    place.hidden = false;
  }

  explain(why) {
    const place = this.part(".why");
    const word = (number) => (number ? this.tree.words[number - 1].form : "the root");
    place.replaceChildren(element("h2", `${word(why.modifier)} under ${word(why.head)}: ${why.answer.text}`));
    const list = element("ul");
    for (const link of why.links.slice(0, kMostLinks)) {
      const item = element("li", `${link.relation || "link"} (${link.child} under ${link.parent}): ${link.reason.text}`);
      for (const detail of link.reason.details ?? []) item.append(element("div", detail));
      const at = link.reason.file ? link.reason : link;
      if (at.file) item.append(" ", element("code", `${at.file}:${at.line}`));
      list.append(item);
    }
    if (list.children.length) place.append(list);
    if (why.dearer > 0) place.append(this.costs(why, word));
    place.hidden = false;
  }

  // The two trees side by side, where they differ.
  costs(why, word) {
    const rows = new Map();
    for (const [column, costs] of [["chosen", why.chosen], ["wanted", why.wanted]])
      for (const row of costs.rows) {
        const key = row.word;
        if (!rows.has(key)) rows.set(key, {});
        rows.get(key)[column] = row;
      }
    const table = element("table");
    const head = table.insertRow();
    for (const text of ["", "chosen", "", "wanted", ""]) head.append(element("th", text));
    for (const [number, { chosen, wanted }] of [...rows].sort((a, b) => a[0] - b[0])) {
      if (JSON.stringify(chosen) === JSON.stringify(wanted)) continue;
      const line = table.insertRow();
      line.append(element("td", number ? word(number) : "sentence"));
      for (const cost of [chosen, wanted]) {
        line.append(element("td", cost ? `${cost.relation || ""} ${cost.head ? "of " + word(cost.head) : ""}` : ""));
        line.append(element("td", cost ? cost.cost.toFixed(1) : "", "number"));
      }
    }
    const sum = table.insertRow();
    sum.append(element("td", "all"), element("td"), element("td", why.chosen.total.toFixed(1), "number"), element("td"),
               element("td", why.wanted.total.toFixed(1), "number"));
    return table;
  }
}

$("form").onsubmit = async (event) => {
  event.preventDefault();
  const text = $("text").value, style = $("style").value;
  $("go").disabled = true;
  $("state").textContent = "parsing";
  try {
    const { sentences } = await ask("/parse", { text, style, drawing: true, width: Math.floor(innerWidth / 10) });
    $("trees").replaceChildren(...sentences.map((sentence) => new Card(sentence, style).root));
    const whole = sentences.filter((sentence) => sentence.parts === 1).length;
    $("state").textContent = `${sentences.length} ${sentences.length === 1 ? "sentence" : "sentences"}, ${whole} of one tree`;
    $("conllu").disabled = false;
    $("conllu").onclick = async () =>
      download("trees.conllu", "text/plain", (await ask("/parse", { text, style, to: "conllu" })).output);
  } catch (fault) {
    $("state").textContent = fault.message;
  }
  $("go").disabled = false;
};

$("text").onkeydown = (event) => {
  if (event.key === "Enter" && (event.ctrlKey || event.metaKey)) $("form").requestSubmit();
};
