// What a browser makes of the page of a grammar. script/test-pages runs it in a folder for the pages
// and screenshots; the environment names the command (TRRULE), the example grammars (EXAMPLES) and
// the browser (BROWSER).

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { cpSync, readFileSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { after, before, test } from "node:test";
import { pathToFileURL } from "node:url";
import { chromium } from "playwright-core";

const { TRRULE, EXAMPLES, BROWSER } = process.env;
const Desktop = { width: 1280, height: 900 };
const Phone = { width: 320, height: 640 };
const Axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");

// ---- Pages --------------------------------------------------------------------------------------

let browser;

before(async () => {
  // Root, as on machines that test, has no sandbox.
  browser = await chromium.launch({ executablePath: BROWSER, args: ["--no-sandbox"] });
});

after(() => browser.close());

// Status 1 means that the page shows findings.
const trrule = (...args) => {
  try {
    return execFileSync(TRRULE, args, { encoding: "utf8", maxBuffer: 1 << 28, stdio: "pipe" });
  } catch (error) {
    assert.equal(error.status, 1, error.stderr);
    return error.stdout;
  }
};

const writePage = (name, ...args) => {
  const file = `${name}.html`;
  trrule("html", "-o", file, ...args);
  return file;
};

cpSync(EXAMPLES, "examples", { recursive: true });
const Spanish = ["examples/spanish/grammar.trr", "examples/spanish/lexicon.trr"];
const spanishPage = writePage("spanish", "--with-tests", ...Spanish);
const smallPage = writePage("small", "examples/small.trr");

// Opens a page, runs the test with it, and expects no error in it and no request but for the file.
const withPage = async (file, options, run) => {
  const context = await browser.newContext({ viewport: Desktop, ...options });
  const page = await context.newPage();
  const troubles = [];
  page.on("request", (request) => {
    if (!/^(file|data):/.test(request.url())) {
      troubles.push(request.url());
    }
  });
  page.on("pageerror", (error) => troubles.push(error.message));
  page.on("console", (message) => message.type() === "error" && troubles.push(message.text()));
  await page.goto(pathToFileURL(file).href);
  await run(page);
  assert.deepEqual(troubles, []);
  await context.close();
};

// Waits until a function is true of the page. The page allows no other way: it evaluates no text.
const until = async (page, predicate, argument) => {
  for (let tries = 0; !(await page.evaluate(predicate, argument)); ++tries) {
    assert.ok(tries < 200, predicate.toString());
    await page.waitForTimeout(50);
  }
};

// The rules that are shown, and those whose lines fit.
const shownRules = (page) =>
  page.$$eval(".rules > li:not([hidden])", (rules) => rules.map((rule) => rule.id));

const rulesWith = async (page, fits) => {
  const rules = await page.$$eval(".rules > li", (all) =>
    all.map((rule) => [rule.id, rule.querySelector("pre").textContent]),
  );
  return rules.filter(([, lines]) => fits(lines)).map(([id]) => id);
};

// On a small page, the search follows each letter at once.
const search = async (page, kind, words) => {
  await page.selectOption("#field", kind);
  await page.fill("#query", words);
  await page.waitForTimeout(50);
  return shownRules(page);
};

// ---- Search -------------------------------------------------------------------------------------

test("searches by label, literal, feature and text", () =>
  withPage(spanishPage, {}, async (page) => {
    const ruleLine = (lines) => lines.split("\n").find((line) => line.includes("] -> ["));
    const labels = (lines) => ruleLine(lines).replace(/"[^"]*"/g, " ").split(/[\s:[\]>-]+/);
    const kinds = [
      ["labels", "np", (lines) => labels(lines).includes("NP")],
      ["literals", "there", (lines) => ruleLine(lines).includes('"there"')],
      ["features", "anim", (lines) => /\([xy]\d+ anim\)/.test(lines)],
      ["text", "telescope", (lines) => lines.includes("telescope")],
    ];
    for (const [kind, word, fits] of kinds) {
      const wanted = await rulesWith(page, fits);
      assert.ok(wanted.length > 0, kind);
      assert.deepEqual(await search(page, kind, word), wanted, kind);
      assert.equal(await page.textContent("#found"), `${wanted.length} of 223 rules`);
    }
    assert.deepEqual(await search(page, "labels", "nonesuch"), []);
    assert.equal(await page.isVisible("#overview"), false);
    assert.equal((await search(page, "labels", "")).length, 223);
    assert.equal(await page.isVisible("#overview"), true);
  }));

test("takes a name that is there as it is, and another as the beginning of names", () =>
  withPage(spanishPage, {}, async (page) => {
    const exact = await search(page, "labels", "N");
    const both = await search(page, "labels", "n NP");
    assert.ok(exact.length > both.length);
    const begun = await search(page, "literals", "telesc");
    assert.deepEqual(begun, await search(page, "literals", "telescope"));
  }));

test("shows only the rules with findings, or not covered", () =>
  withPage(smallPage, {}, async (page) => {
    await page.selectOption("#show", "finding");
    const withFindings = await page.$$eval(".rules > li:has(.findings)", (rules) =>
      rules.map((rule) => rule.id),
    );
    assert.ok(withFindings.length > 0);
    assert.deepEqual(await shownRules(page), withFindings);
    assert.equal(await page.locator("#show option").count(), 2);
  }));

// ---- Links --------------------------------------------------------------------------------------

test("leads from a label to the rules that provide it, and to a rule that is hidden", () =>
  withPage(spanishPage, {}, async (page) => {
    const shown = await search(page, "text", "hay un libro");
    await page.click(`#${shown[0]} pre a[href="#label-NP"]`);
    await until(page, () => document.getElementById("label-NP").open);
    assert.equal(await page.evaluate(() => document.activeElement.parentElement.id), "label-NP");
    const provider = page.locator("#label-NP ul a").first();
    const target = await provider.getAttribute("href");
    assert.ok(!shown.includes(target.slice(1)));
    await provider.click();
    await until(
      page,
      (id) => {
        const { top, bottom } = document.querySelector(id).getBoundingClientRect();
        return bottom > 0 && top >= 0 && top < innerHeight;
      },
      target,
    );
    await page.waitForSelector(`${target} .picture svg`);
    assert.equal(await page.inputValue("#query"), "");
  }));

test("opens at the rule that the address names", async () => {
  await withPage(spanishPage, {}, async (page) => {
    await page.goto(`${page.url()}#rule-150`);
    await page.reload();
    await until(page, () => {
      const { top } = document.getElementById("rule-150").getBoundingClientRect();
      return top >= 0 && top < 200;
    });
  });
});

// ---- Pictures -----------------------------------------------------------------------------------

test("makes the pictures that trrule draw makes, when they come into view", () =>
  withPage(spanishPage, {}, async (page) => {
    const drawn = trrule("draw", "--format", "html", ...Spanish)
      .split('<figure tabindex="0">\n')
      .slice(1)
      .map((part) => part.split("</figure>")[0]);
    assert.ok((await page.locator(".picture svg").count()) < 20);
    for (const index of [0, 7, 111, 222]) {
      await page.locator(".rules > li").nth(index).scrollIntoViewIfNeeded();
      const picture = page.locator(".rules > li").nth(index).locator(".picture");
      await picture.locator("svg").waitFor();
      const isSame = await picture.evaluate((box, svg) => {
        const other = document.createElement("figure");
        other.innerHTML = svg;
        return other.innerHTML === box.innerHTML;
      }, drawn[index]);
      assert.ok(isSame, `the picture of rule ${index + 1}`);
    }
  }));

test("opens a derivation", () =>
  withPage(spanishPage, {}, async (page) => {
    const [rule] = await search(page, "text", "hay un libro");
    const summary = page.locator(`#${rule} .derivation > summary`).first();
    await summary.focus();
    await page.keyboard.press("Enter");
    const picture = page.locator(`#${rule} .derivation svg`).first();
    await picture.waitFor();
    assert.equal(
      await picture.locator("title").first().textContent(),
      "there is a book in the house -> hay un libro en la casa",
    );
    await page.locator(`#${rule} .derivation details summary`).first().click();
    assert.match(await page.locator(`#${rule} .derivation ol li`).first().textContent(), /\.trr:\d+/);
    await page.screenshot({ path: "derivation.png" });
  }));

test("gives every element an identifier of its own, with all that opens open", () =>
  withPage(spanishPage, {}, async (page) => {
    await page.$$eval("details", (all) => all.forEach((each) => (each.open = true)));
    await page.pdf();
    const repeated = await page.evaluate(() => {
      const ids = [...document.querySelectorAll("[id]")].map((element) => element.id);
      return ids.filter((id, index) => ids.indexOf(id) !== index);
    });
    assert.deepEqual(repeated, []);
  }));

// ---- Readers ------------------------------------------------------------------------------------

test("can be used by the keyboard alone", () =>
  withPage(spanishPage, {}, async (page) => {
    const focused = () => page.evaluate(() => document.activeElement.id);
    await page.keyboard.press("Tab");
    assert.equal(await page.evaluate(() => document.activeElement.className), "skip");
    for (let count = 0; count < 4; ++count) {
      await page.keyboard.press("Tab");
    }
    assert.equal(await focused(), "query");
    await page.keyboard.type("telescope");
    await until(page, () => !document.getElementById("found").textContent.startsWith("223"));
    await page.keyboard.press("Tab");
    assert.equal(await focused(), "field");
    await page.keyboard.press("Tab");
    assert.equal(await focused(), "show");
    await page.focus(".skip");
    await page.keyboard.press("Enter");
    await until(page, () => location.hash === "#rules");
    await page.keyboard.press("Tab");
    assert.match(
      await page.evaluate(() => document.activeElement.getAttribute("href")),
      /^#rule-\d+$/,
    );
  }));

test("needs no more width than a phone has", () =>
  withPage(spanishPage, { viewport: Phone, hasTouch: true, isMobile: true }, async (page) => {
    const [rule] = await search(page, "text", "hay un libro");
    await page.locator(`#${rule} .derivation > summary`).first().tap();
    await page.locator(`#${rule} .derivation svg`).first().waitFor();
    await page.tap('nav a[href="#labels"]');
    assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), Phone.width);
    await page.screenshot({ path: "phone.png", fullPage: true });
  }));

test("prints the pictures of the rules that are shown, and nothing that only works", () =>
  withPage(spanishPage, {}, async (page) => {
    const shown = await search(page, "labels", "np");
    await page.emulateMedia({ media: "print" });
    assert.equal(await page.isVisible("#search"), false);
    assert.equal(await page.isVisible("nav"), false);
    writeFileSync("printed.pdf", await page.pdf());
    assert.equal(
      await page.locator(".rules > li:not([hidden]) .picture svg").count(),
      shown.length,
    );
  }));

test("can be read without its script", () =>
  withPage(spanishPage, { javaScriptEnabled: false }, async (page) => {
    assert.equal(await page.locator("#rule-223 pre").isVisible(), true);
    assert.equal(await page.locator("#search").isVisible(), false);
    assert.equal(await page.locator("#rule-1 .picture").isVisible(), false);
  }));

for (const scheme of ["light", "dark"]) {
  test(`has no violation that a checker finds, ${scheme}`, () =>
    withPage(spanishPage, { colorScheme: scheme }, async (page) => {
      await page.screenshot({ path: `${scheme}.png` });
      const [rule] = await search(page, "text", "hay un libro");
      await page.locator(`#${rule} .derivation > summary`).first().click();
      await page.click(`#${rule} h3 a[href^="#label-"] >> nth=0`);
      await page.screenshot({ path: `${scheme}-whole.png`, fullPage: true });
      await page.evaluate(Axe);
      const violations = async () =>
        (await page.evaluate(() => globalThis.axe.run({ resultTypes: ["violations"] }))).violations.map(
          (each) => `${each.id}: ${each.nodes.map((node) => node.html).join(" ")}`,
        );
      assert.deepEqual(await violations(), []);
      await page.setViewportSize(Phone);
      assert.deepEqual(await violations(), []);
    }));
}

test("shows findings without violation, light and dark", async () => {
  for (const colorScheme of ["light", "dark"]) {
    await withPage(smallPage, { colorScheme }, async (page) => {
      await page.evaluate(Axe);
      const { violations } = await page.evaluate(() => globalThis.axe.run());
      assert.deepEqual(violations, []);
      await page.screenshot({ path: `findings-${colorScheme}.png`, fullPage: true });
    });
  }
});

// ---- Safety -------------------------------------------------------------------------------------

test("lets no rule run a script", async () => {
  const grammar = "hostile.trr";
  const markup = "</script></style></pre><script>document.title='x'</script><img/src/onerror=alert(1)>";
  writeFileSync(
    grammar,
    Buffer.concat([
      Buffer.from(`;;SL: ${markup}\n;;TL: ${markup}\n{NP,1}\n`),
      Buffer.from(`${markup}::${markup} : [${markup} "${markup}"] -> [${markup} "\x01`),
      Buffer.from([0xff, 0xfe]),
      Buffer.from(`"]\n(X1::Y1)\n((x1 ${markup}) = ${markup})\n((x1 ${markup})\n`),
    ]),
  );
  await withPage(writePage("hostile", "--with-tests", grammar), {}, async (page) => {
    await page.waitForSelector(".picture svg");
    assert.equal(await page.title(), "Grammar hostile.trr");
    assert.equal(await page.locator("script").count(), 1);
    assert.equal(await page.locator("img").count(), 0);
    assert.ok((await page.textContent("#rule-1 pre")).includes(markup));
  });
});

test("may ask the network for nothing", () =>
  withPage(smallPage, {}, async (page) => {
    const refused = await page.evaluate(
      () =>
        new Promise((resolve) => {
          addEventListener("securitypolicyviolation", (event) => resolve(event.effectiveDirective));
          const image = new Image();
          image.src = "http://localhost/picture";
        }),
    );
    assert.equal(refused, "img-src");
  }).catch((error) => {
    // The refusal is said on the console.
    assert.match(error.message, /Content Security Policy/);
  }));

// ---- Size ---------------------------------------------------------------------------------------

test("opens with 10,000 rules, whose pictures wait", async () => {
  const rules = Array.from(
    { length: 10000 },
    (_, number) =>
      `{NP,${number}}\nNP::NP : [DET "w${number}" N] -> [DET N]\n(X1::Y1)\n(X3::Y2)\n` +
      "((x1 num) = (x3 num))\n((y2 num) = (x3 num))\n",
  );
  writeFileSync("large.trr", rules.join("\n"));
  const file = writePage("large", "large.trr");
  await withPage(file, {}, async (page) => {
    assert.ok((await page.locator(".picture svg").count()) < 20);
    assert.ok((await page.locator("*").count()) < 250000);
    await page.selectOption("#field", "literals");
    await page.fill("#query", "w7777");
    await until(page, () => document.getElementById("found").textContent === "1 of 10000 rules");
    await page.locator("#rule-7778 .picture svg").waitFor();
    const [{ domInteractive }] = await page.evaluate(() =>
      performance.getEntriesByType("navigation").map((each) => each.toJSON()),
    );
    console.log(`10,000 rules: ${readFileSync(file).length} bytes, ${Math.round(domInteractive)} ms`);
  });
});
