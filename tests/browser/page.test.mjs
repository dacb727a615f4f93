// The page of `torvane serve` in a browser, as a person uses it. Run by script/browser-test:
// TORVANE names the program, CHROMIUM the browser, SHOTS a folder for pictures (none: no pictures).
import assert from "node:assert";
import { spawn } from "node:child_process";
import { readFile } from "node:fs/promises";
import { after, before, test } from "node:test";
import { chromium } from "playwright-core";

let service, address, browser, page;
const faults = [];

before(async () => {
  service = spawn(process.env.TORVANE, ["serve", "--port", "0"], { stdio: ["ignore", "pipe", "inherit"] });
  address = await new Promise((done) => service.stdout.once("data", (line) => done(String(line).trim())));
  browser = await chromium.launch({
    executablePath: process.env.CHROMIUM,
    args: ["--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
           "--disable-component-update", "--disable-sync"],
  });
  page = await browser.newPage({ viewport: { width: 1100, height: 800 } });
  page.on("pageerror", (fault) => faults.push(String(fault)));
  page.on("console", (message) => message.type() === "error" && faults.push(message.text()));
  page.on("request", (request) => {
    if (!request.url().startsWith(address) && !request.url().startsWith("blob:")) faults.push(request.url());
  });
  await page.goto(address);
});

after(async () => {
  await browser?.close();
  service?.kill();
});

async function parse(text, style = "content") {
  await page.fill("#text", text);
  await page.selectOption("#style", style);
  await page.click("#go");
  await page.waitForSelector("#go:not([disabled])");
}

async function shot(name) {
  if (process.env.SHOTS) await page.screenshot({ path: `${process.env.SHOTS}/${name}.png`, fullPage: true });
}

const forms = () => page.$$eval(".word .form", (texts) => texts.map((text) => text.textContent));

test("text becomes trees", async () => {
  await parse("The dogs bark. Mr. Brown sleeps.");
  assert.deepEqual(await forms(), ["The", "dogs", "bark", ".", "Mr.", "Brown", "sleeps", "."]);
  assert.equal(await page.textContent("#state"), "2 sentences, 2 of one tree");
  await shot("page");
});

test("markup in a text is text", async () => {
  await parse("<img src=x onerror=alert(1)> & <script>alert(2)</script> sleeps.");
  assert.equal(await page.$("article img, article script"), null);
});

test("a click on a word and on a head tells why", async () => {
  await parse("The dogs bark.");
  await page.click(".word >> nth=0");
  await page.click(".word >> nth=2");
  await page.waitForSelector(".why:not([hidden])");
  assert.match(await page.textContent(".why h2"), /^The under bark: \w+/);
  assert.equal(await page.$(".why .fault"), null);
  await shot("why");
});

test("the keyboard does what the mouse does", async () => {
  await parse("The dogs bark.");
  await page.focus(".word >> nth=1");
  await page.keyboard.press("Enter");
  await page.focus(".word >> nth=2");
  await page.keyboard.press("Enter");
  await page.waitForSelector(".why:not([hidden])");
  assert.match(await page.textContent(".why h2"), /^dogs under bark: /);
});

test("next-best trees, one after the other", async () => {
  await parse("He saw the man with a dog.");
  const best = await page.innerHTML(".drawing");
  await page.click(".after");
  await page.waitForSelector(".rank:has-text('tree 2')");
  assert.match(await page.textContent(".rank"), /^tree 2, cost [\d.]+$/);
  assert.notEqual(await page.innerHTML(".drawing"), best);
  await page.click(".before");
  assert.equal(await page.innerHTML(".drawing"), best);
});

test("the style is that which is chosen", async () => {
  const tags = () => page.$$eval(".label", (labels) => labels.map((label) => label.textContent).join(" "));
  await parse("The dogs have barked.");
  const content = await tags();
  await parse("The dogs have barked.", "grammar");
  assert.notEqual(await tags(), content);
});

test("downloads", async () => {
  await parse("The dogs bark.");
  for (const [button, name, begin] of [["#conllu", "trees.conllu", "# newpar\n"], [".svg", "tree-1.svg", "<svg "]]) {
    const [download] = await Promise.all([page.waitForEvent("download"), page.click(button)]);
    assert.equal(download.suggestedFilename(), name);
    assert.ok((await readFile(await download.path(), "utf8")).startsWith(begin));
  }
});

test("other shapes", async () => {
  await page.emulateMedia({ colorScheme: "dark" });
  await parse("What did the old man who lives near the river say that the children had seen in the garden before the " +
              "rain began to fall on the roofs of the houses?\n\nשלום עולם. Zebras of of the.");
  await shot("dark");
  await page.emulateMedia({ colorScheme: "light" });
  await page.setViewportSize({ width: 420, height: 800 });
  await parse("Who did you think that she saw when the long train left the station?");
  assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth));
  await shot("narrow");
});

test("nothing went wrong on the way", () => assert.deepEqual(faults, []));
