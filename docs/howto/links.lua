-- The texts that become pages, by where they stand below the folder of the documents or that of the sources.
local pages = {
  ["README.md"] = "index",
  ["index-file.md"] = "index-file",
  ["translation.md"] = "translation",
  ["training.md"] = "training",
  ["cloning.md"] = "cloning",
  ["files.md"] = "files",
  ["data/languages/README.md"] = "languages",
  ["simulator/README.md"] = "board",
}

-- A link to a text that becomes no page has nowhere to lead to: its words stay.
function Link(link)
  local text, anchor = link.target:match("^([^#:]+)(#?.*)$")
  if not text then return link end -- on the same page, or in the web
  local place = text:gsub("^[./]+", ""):gsub("^docs/", ""):gsub("^howto/", "")
  if not pages[place] then return link.content end
  link.target = pages[place] .. ".html" .. anchor
  return link
end
