// Everything works without this; with it tables are sorted in place and lists can be filtered.
"use strict";

const naturally = new Intl.Collator("en", { numeric: true, sensitivity: "base" });

function keyOf(row, column) {
  const cell = row.cells[column];
  return cell.dataset.value ?? cell.textContent.trim();
}

// As the server orders: numbers by their value, texts as people count, what is empty at the end.
function compareKeys(left, right, isDescending) {
  if (left === "" || right === "") return (left === "") - (right === "");
  const numbers = [Number(left), Number(right)];
  const order = numbers.some(Number.isNaN)
    ? naturally.compare(left, right)
    : numbers[0] - numbers[1];
  return isDescending ? -order : order;
}

function sortBy(head) {
  const table = head.closest("table");
  const isDescending = head.ariaSort === "ascending";
  for (const other of head.parentElement.cells) {
    if (other.hasAttribute("aria-sort")) other.setAttribute("aria-sort", "none");
  }
  head.setAttribute("aria-sort", isDescending ? "descending" : "ascending");
  const body = table.tBodies[0];
  const column = head.cellIndex;
  const rows = [...body.rows];
  const keys = new Map(rows.map((row) => [row, keyOf(row, column)]));
  rows.sort((left, right) => compareKeys(keys.get(left), keys.get(right), isDescending));
  body.append(...rows);
}

// A head that is a link leads to the table in that order; where all rows are here, they are sorted.
function makeSortable(table) {
  for (const head of table.tHead.rows[0].cells) {
    const link = head.querySelector("a");
    if (!head.hasAttribute("aria-sort")) head.setAttribute("aria-sort", "none");
    let target = link;
    if (!link) {
      target = document.createElement("button");
      target.className = "sorter";
      target.textContent = head.textContent;
      head.replaceChildren(target);
    }
    target.addEventListener("click", (event) => {
      if (event.ctrlKey || event.metaKey || event.shiftKey) return;
      event.preventDefault();
      sortBy(head);
    });
  }
}

function showMatches(items, text) {
  let shown = 0;
  for (const item of items) {
    item.hidden = !item.textContent.toLowerCase().includes(text);
    shown += !item.hidden;
  }
  return shown;
}

function addFilter(place, items) {
  const box = document.createElement("p");
  const label = document.createElement("label");
  const input = document.createElement("input");
  const count = document.createElement("span");
  box.className = "filter";
  label.textContent = "Filter";
  input.type = "search";
  label.append(" ", input);
  count.className = "note";
  count.setAttribute("role", "status");
  box.append(label, count);
  input.addEventListener("input", () => {
    const text = input.value.trim().toLowerCase();
    const shown = showMatches(items, text);
    count.textContent = text ? `${shown} of ${items.length}` : "";
  });
  place.before(box);
}

for (const table of document.querySelectorAll('table[data-whole="yes"]')) {
  makeSortable(table);
  const rows = [...table.tBodies[0].rows];
  if (rows.length > 12) addFilter(table.closest(".wide"), rows);
}

// An item that holds a match stays with what leads to it.
for (const tree of document.querySelectorAll(".tree")) {
  const items = [...tree.querySelectorAll("li")];
  if (items.length > 30) addFilter(tree, items);
}

document.addEventListener("keydown", (event) => {
  if (event.key !== "/" || event.target.closest("input")) return;
  event.preventDefault();
  document.getElementById("q").focus();
});
